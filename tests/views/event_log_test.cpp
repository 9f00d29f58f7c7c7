// The event log: what its month store holds, the grid that shows a month, and the window on both.
#include "views/event_log.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>

#include "core/error_list.h"
#include "platform/database.h"
#include "platform/events.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"
#include "records/databases.h"
#include "settings/language.h"
#include "support/monitor_fixture.h"
#include "views/event_month.h"
#include "views/kit/bubble.h"
#include "views/kit/colors.h"
#include "views/kit/month_grid.h"

namespace varek {
namespace {

struct Row {
  std::string time;
  int type;
};

class EventLogTest : public test::MonitorTest {
 protected:
  EventLogTest() {
    test::InstallPictures(Folder());
    Loadlanguage(0);
  }

  static void Write(const std::vector<Row>& rows) {
    platform::Database database(platform::ProgramPath(kEventFile));
    const auto table = database.OpenRecordset(kEventTable);
    database.BeginTransaction();
    for (const Row& row : rows) {
      table->AddNew();
      table->Set(0, row.time);
      table->Set(1, int64_t{row.type});
      table->Update();
    }
    database.CommitTransaction();
  }

  static void Mouse(QWidget& widget, QEvent::Type type, QPointF at) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &event);
  }

  static void Key(QWidget& widget, int key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
  }

  static Form6& Open() {
    ShowEventLog();
    platform::DoEvents();
    return EventLog().Get();
  }

  template <typename Control>
  static Control& Find(const char* name) {
    return *EventLog().Get().findChild<Control*>(QString::fromLatin1(name));
  }

  static void ClickDay(int day) {
    auto& grid = Find<MonthGrid>("Picture1");
    Mouse(grid, QEvent::MouseButtonPress, grid.CellRect(grid.CellOf(day)).center());
  }

  /// Texts of a column of the day list.
  static std::vector<std::string> Column(int column) {
    auto& list = Find<QTableWidget>("MSFlexGrid1");
    std::vector<std::string> texts;
    for (int row = 0; row < list.rowCount(); ++row)
      texts.push_back(list.item(row, column)->text().toStdString());
    return texts;
  }
};

TEST(EventMonth, AsksForOneMonth) {
  EXPECT_EQ(EventMonthQuery(2010, 3),
            "Select *  From [allevent] Where  [DateANDTime] >= #2010/3/01# AND  [DateANDTime] < "
            "#2010/4/01#");
  EXPECT_EQ(EventMonthQuery(2010, 12),
            "Select *  From [allevent] Where  [DateANDTime] >= #2010/12/01# AND  [DateANDTime] < "
            "#2011/01/01#");
}

TEST_F(EventLogTest, StoreHoldsTheMonthFromMidnightToMidnight) {
  Write({{"2010-11-30 23:59:59", 1},
         {"2010-12-31 23:59:59", 12},
         {"2010-12-01 00:00:00", 8},
         {"2010-12-31 10:00:00", 6},
         {"2010-12-31 09:00:00", 12},
         {"2010-12-31 09:30:00", 77},
         {"2011-01-01 00:00:00", 2}});
  EventMonth month;
  EXPECT_TRUE(month.reloadmon(2010, 12));
  EXPECT_EQ(month.KindsOf(1), std::vector<size_t>{7});
  EXPECT_EQ(month.KindsOf(31), (std::vector<size_t>{5, 11}));
  EXPECT_EQ(month.CountOf(30), 0U);

  struct Case {
    EventKinds kinds;
    std::vector<std::string> times;  ///< in the order in which they were written
  };
  const Case cases[] = {
      {EventKinds().set(), {"2010/12/31 23:59:59", "2010/12/31 10:00:00", "2010/12/31 09:00:00"}},
      {EventKinds().set(11), {"2010/12/31 23:59:59", "2010/12/31 09:00:00"}},
      {EventKinds().set(5), {"2010/12/31 10:00:00"}},
      {{}, {}}};
  for (const Case& c : cases) {
    std::vector<std::string> times;
    for (const LoggedEvent* event : month.Listed(31, c.kinds)) times.push_back(event->time);
    EXPECT_EQ(times, c.times) << c.kinds;
  }

  month.reloadmon(2011, 1);
  EXPECT_EQ(month.CountOf(31), 0U);
  EXPECT_EQ(month.KindsOf(1), std::vector<size_t>{1});
}

TEST_F(EventLogTest, StoreStopsAtTheDayLimitAndAtErrors) {
  std::vector<Row> rows(kMostEventsOfADay, {"2010-03-05 12:00:00", 6});
  rows.push_back({"2010-03-06 12:00:00", 6});
  Write(rows);
  EventMonth month;
  EXPECT_TRUE(month.reloadmon(2010, 3));
  EXPECT_EQ(month.CountOf(5), 2000U);
  EXPECT_EQ(month.CountOf(6), 1U);

  Write({{"2010-03-05 12:00:01", 6}, {"2010-03-07 12:00:00", 6}});
  EXPECT_FALSE(month.reloadmon(2010, 3));
  EXPECT_EQ(month.CountOf(5), 2000U);
  EXPECT_EQ(month.CountOf(6), 1U);
  EXPECT_EQ(month.CountOf(7), 0U);

  platform::Database(platform::ProgramPath(kEventFile)).DeleteTable(kEventTable);
  EXPECT_FALSE(month.reloadmon(2010, 3));
  EXPECT_EQ(month.CountOf(5), 0U);
  EXPECT_EQ(Form13::List1().size(), 2U);
}

TEST_F(EventLogTest, GridReactsOnDaysOnly) {
  MonthGrid grid(nullptr, "grid", {{{9, 9, 9}, {}}, {{8, 8, 8}, {}}, {{7, 7, 7}, {}}});
  grid.resize(700, 322);  // Cells of 100 x 50.
  std::vector<int> clicked;
  std::vector<std::pair<int, int>> hovered;
  grid.OnClick([&](int day) { clicked.push_back(day); });
  grid.OnHover([&](int day, int picture) { hovered.emplace_back(day, picture); });

  clock.SetNow({2026, 8, 4, 12, 0, 0});
  grid.ShowMonth(2026, 8);  // Begins on a Saturday.
  EXPECT_EQ(grid.CellOf(1), 6);
  EXPECT_EQ(grid.CellOf(31), 36);
  for (const int cell : {0, 5, 6, 36, 37, 41})
    Mouse(grid, QEvent::MouseButtonPress, grid.CellRect(cell).center());
  Mouse(grid, QEvent::MouseButtonPress, {50, 5});  // A head.
  EXPECT_EQ(clicked, (std::vector<int>{1, 31}));

  // From the 31st: out of the month below and beyond, then up, left, and out at the beginning.
  for (const int key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Space})
    Key(grid, key);
  EXPECT_EQ(clicked.back(), 23);
  grid.SelectDay(1);
  for (const int key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Enter}) Key(grid, key);
  EXPECT_EQ(clicked.back(), 1);

  QPixmap picture(30, 20);
  grid.SetPictures(1, {&picture, &picture, &picture});
  const std::vector<QRect> rects = grid.PictureRects(1);  // There is room for two in a row.
  EXPECT_EQ(rects[1].topLeft(), rects[0].topLeft() + QPoint(30, 0));
  EXPECT_EQ(rects[2].topLeft(), rects[0].topLeft() + QPoint(0, 20));
  for (const QPoint at : {rects[0].center(), rects[0].topLeft(), rects[2].center(),
                          rects[0].topLeft() - QPoint(1, 0), rects[1].center()})
    Mouse(grid, QEvent::MouseMove, at);
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(&grid, &leave);
  EXPECT_EQ(hovered,
            (std::vector<std::pair<int, int>>{{1, 0}, {1, 2}, {-1, -1}, {1, 1}, {-1, -1}}));

  const QImage page = grid.grab().toImage();
  const auto back = [&](int cell) { return page.pixelColor(grid.CellRect(cell).topLeft()); };
  EXPECT_EQ(back(grid.CellOf(1)), ToQColor({7, 7, 7}));
  EXPECT_EQ(back(grid.CellOf(4)), ToQColor({8, 8, 8}));
  EXPECT_EQ(back(grid.CellOf(5)), ToQColor({9, 9, 9}));
  EXPECT_EQ(back(41), ToQColor({9, 9, 9}));
}

TEST_F(EventLogTest, OffersItsYearsAndShowsTodayWhateverItsYear) {
  Open();
  auto& years = Find<QComboBox>("Combo1");
  EXPECT_EQ(years.count(), 12);
  EXPECT_EQ(years.itemText(0) + years.itemText(11), QStringLiteral("20002011"));
  EXPECT_EQ(years.currentIndex(), -1);
  EXPECT_EQ(Find<QComboBox>("Combo2").currentIndex(), 2);
  const auto header = [] { return Find<QLabel>("Label1").text().toStdString(); };
  EXPECT_EQ(header(), "2026 March");
  Find<QComboBox>("Combo2").setCurrentIndex(1);
  EXPECT_EQ(header(), "2026 February");
  years.setCurrentIndex(4);
  EXPECT_EQ(header(), "2004 February");
  EXPECT_EQ(Find<MonthGrid>("Picture1").DayIn(28), 29);
  ClickDay(5);
  Find<QPushButton>("Today").click();
  EXPECT_EQ(header(), "2026 March");
  EXPECT_EQ(years.currentIndex(), -1);
  ClickDay(6);
  Find<QTableWidget>("MSFlexGrid1").setFocus();
  Key(*EventLog().Get().focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(Find<QWidget>("Frame2").isHidden());
  EXPECT_EQ(EventLog().Get().focusWidget(), &Find<MonthGrid>("Picture1"));

  EventLog().Unload();
  clock.SetNow({2011, 1, 31, 12, 0, 0});
  Open();
  EXPECT_EQ(Find<QComboBox>("Combo1").currentText(), QStringLiteral("2011"));
  EXPECT_TRUE(DataCenter.FormOpen[Form6::kNumber]);
  EventLog().Unload();
  EXPECT_FALSE(DataCenter.FormOpen[Form6::kNumber]);
}

TEST_F(EventLogTest, ListsTheClickedDayByItsBoxes) {
  clock.SetNow({2011, 1, 31, 12, 0, 0});
  Write({{"2011-01-05 10:00:00", 6}, {"2011-01-05 10:00:03", 7}, {"2011-01-05 10:09:00", 6}});
  Form6& form = Open();
  auto& list = Find<QWidget>("Frame2");
  EXPECT_TRUE(list.isHidden());
  ClickDay(5);
  EXPECT_FALSE(list.isHidden());
  EXPECT_EQ(list.findChild<QLabel*>()->text(), QStringLiteral("2011/1/5"));
  EXPECT_EQ(Column(0).size(), 3U);
  EXPECT_EQ(Column(0).back(), "2011/01/05 10:09:00");
  EXPECT_EQ(Column(1)[1], LangText[137]);

  const auto boxes = form.findChildren<QCheckBox*>(QStringLiteral("Check1"));
  ASSERT_EQ(boxes.size(), 12);
  boxes[5]->setChecked(false);
  EXPECT_EQ(Column(0).size(), 3U);  // The boxes count once the list is asked for anew.
  Find<QPushButton>("Command2").click();
  EXPECT_EQ(Column(0), std::vector<std::string>{"2011/01/05 10:00:03"});
  Find<QPushButton>("Command4").click();
  EXPECT_TRUE(Column(0).empty());
  Find<QPushButton>("Command3").click();
  EXPECT_EQ(Column(0).size(), 3U);

  auto& grid = Find<MonthGrid>("Picture1");
  Mouse(grid, QEvent::MouseMove, grid.PictureRects(5).at(1).center());
  EXPECT_EQ(Find<Bubble>("Picture2").text().toStdString(), LangText[137]);
  Mouse(grid, QEvent::MouseMove, grid.CellRect(0).center());
  EXPECT_TRUE(Find<Bubble>("Picture2").isHidden());

  Loadlanguage(1);
  language(Form6::kNumber);
  EXPECT_EQ(Column(1)[1], LangText[137]);
  EXPECT_EQ(Find<QLabel>("Label1").text().toStdString(), "2011 " + LangText[61]);
  ClickDay(6);
  EXPECT_EQ(Find<QLabel>("Label3").text().toStdString(), LangText[197]);
  Find<QComboBox>("Combo2").setCurrentIndex(1);
  EXPECT_TRUE(list.isHidden());  // It showed a day of January.
}

TEST_F(EventLogTest, DayListStaysInsideAndDoesNotFollowEdges) {
  Form6& form = Open();
  ClickDay(1);
  auto& list = Find<QWidget>("Frame2");
  const auto dragBy = [&](QPoint travel) {
    Mouse(list, QEvent::MouseButtonPress, {20, 10});
    Mouse(list, QEvent::MouseMove, QPoint(20, 10) + travel);
  };
  const QSize client = form.Client()->size();
  const QPoint corner(client.width() - list.width(), client.height() - list.height());
  dragBy(corner - list.pos() - QPoint(9, 9));
  EXPECT_EQ(list.pos(), corner);
  form.resize(form.size() + QSize(100, 100));
  platform::DoEvents();
  EXPECT_EQ(list.pos(), corner);
  form.resize(form.minimumSize());
  platform::DoEvents();
  EXPECT_TRUE(form.Client()->rect().contains(list.geometry()));
}

TEST_F(EventLogTest, AMissingPictureEndsTheLoad) {
  platform::SetProgramFolder("/nonexistent");
  EXPECT_THROW(EventLog().Get(), platform::RuntimeError);
  EXPECT_FALSE(EventLog().IsLoaded());
}

}  // namespace
}  // namespace varek
