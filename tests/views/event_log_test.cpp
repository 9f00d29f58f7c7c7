// The event log: what its month store holds, the grid that shows a month, and the window on both.
#include "views/event_log/event_log.h"

#include <gtest/gtest.h>

#include "platform/storage/database.h"
#include "support/windows.h"
#include "views/event_log/event_month.h"
#include "views/kit/calendar/month_grid.h"
#include "views/kit/controls/bubble.h"
#include "views/kit/windows/movable_panel.h"

namespace varek {
namespace {

using test::Nth, test::Saying, test::Key;

struct Row {
  std::string time;
  int type;
};

class EventLogTest : public test::WindowTest {
 protected:
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

  static Form6& Open() {
    ShowEventLog();
    test::Settle();
    return EventLog().Get();
  }
  static MonthGrid& Month() { return Nth<MonthGrid>(EventLog().Get()); }
  static MovablePanel& DayList() { return Nth<MovablePanel>(EventLog().Get()); }
  static void ClickDay(int day) {
    test::Click(Month(), Month().CellRect(Month().CellOf(day)).center());
  }
  static void Press(const std::string& button) {
    test::Click(Saying<QPushButton>(EventLog().Get(), button));
  }

  /// Texts of a column of the day list.
  static std::vector<std::string> Column(int column) {
    const auto& list = Nth<QTableWidget>(EventLog().Get());
    std::vector<std::string> texts;
    for (int row = 0; row < list.rowCount(); ++row)
      texts.push_back(list.item(row, column)->text().toStdString());
    return texts;
  }
};

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

  const std::pair<EventKinds, std::vector<std::string>> cases[] = {
      {EventKinds().set(), {"2010/12/31 23:59:59", "2010/12/31 10:00:00", "2010/12/31 09:00:00"}},
      {EventKinds().set(11), {"2010/12/31 23:59:59", "2010/12/31 09:00:00"}},
      {{}, {}}};
  for (const auto& [kinds, expected] : cases) {
    std::vector<std::string> times;
    for (const LoggedEvent* event : month.Listed(31, kinds)) times.push_back(event->time);
    EXPECT_EQ(times, expected) << kinds;
  }

  month.reloadmon(2010, 11);
  EXPECT_EQ(month.KindsOf(30), std::vector<size_t>{0});
  EXPECT_EQ(month.CountOf(1), 0U);
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
  EXPECT_EQ(month.CountOf(7), 0U);

  platform::Database(platform::ProgramPath(kEventFile)).DeleteTable(kEventTable);
  EXPECT_FALSE(month.reloadmon(2010, 3));
  EXPECT_EQ(month.CountOf(5), 0U);
  EXPECT_EQ(Form13::List1().size(), 2U);
}

TEST_F(EventLogTest, GridReactsOnDaysOnly) {
  MonthGrid grid(nullptr, "grid", {});
  grid.resize(700, 322);  // Cells of 100 x 50.
  std::vector<int> clicked;
  std::vector<std::pair<int, int>> hovered;
  grid.OnClick([&](int day) { clicked.push_back(day); });
  grid.OnHover([&](int day, int picture) { hovered.emplace_back(day, picture); });
  grid.ShowMonth(2026, 8);  // Begins on a Saturday and needs six weeks.
  for (const int cell : {0, 5, 6, 36, 37, 41}) test::Click(grid, grid.CellRect(cell).center());
  test::Click(grid, {50, 5});  // A head.
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
  EXPECT_EQ(rects[2].topLeft(), rects[0].topLeft() + QPoint(0, 20));
  for (const QPoint at : {rects[0].center(), rects[0].topLeft(), rects[2].center(),
                          rects[0].topLeft() - QPoint(1, 0), rects[1].center()})
    test::Hover(grid, at);
  test::Leave(grid);
  EXPECT_EQ(hovered,
            (std::vector<std::pair<int, int>>{{1, 0}, {1, 2}, {-1, -1}, {1, 1}, {-1, -1}}));
}

TEST_F(EventLogTest, OffersItsYearsAndShowsTodayWhateverItsYear) {
  Form6& form = Open();
  auto& years = Nth<QComboBox>(form);
  auto& months = Nth<QComboBox>(form, 1);
  const auto shows = [&](const char* title) { return test::Says(Saying(form, title), title); };
  EXPECT_EQ(years.itemText(0) + years.itemText(years.count() - 1), QStringLiteral("20002011"));
  EXPECT_EQ(years.currentIndex(), -1);
  EXPECT_EQ(months.currentIndex(), 2);
  EXPECT_TRUE(shows("2026 March"));
  months.setCurrentIndex(1);
  EXPECT_TRUE(shows("2026 February"));
  years.setCurrentIndex(4);
  EXPECT_TRUE(shows("2004 February"));
  EXPECT_EQ(Month().DayIn(28), 29);
  Press("Today");
  EXPECT_TRUE(shows("2026 March"));
  EXPECT_EQ(years.currentIndex(), -1);
  ClickDay(6);
  Nth<QTableWidget>(form).setFocus();
  Key(test::FocusOf(form), Qt::Key_Escape);
  EXPECT_TRUE(DayList().isHidden());
  EXPECT_EQ(form.focusWidget(), &Month());

  EventLog().Unload();
  clock.SetNow({2011, 1, 31, 12, 0, 0});
  EXPECT_EQ(Nth<QComboBox>(Open()).currentText(), QStringLiteral("2011"));
}

TEST_F(EventLogTest, ListsTheClickedDayByItsBoxes) {
  clock.SetNow({2011, 1, 31, 12, 0, 0});
  Write({{"2011-01-05 10:00:00", 6},
         {"2011-01-05 10:00:03", 7},
         {"2011-01-05 23:59:59", 6},
         {"2011-01-06 00:00:00", 1}});
  Form6& form = Open();
  EXPECT_TRUE(DayList().isHidden());
  ClickDay(5);
  EXPECT_FALSE(DayList().isHidden());
  EXPECT_NO_THROW(Saying(DayList(), "2011/1/5"));
  EXPECT_EQ(Column(0), (std::vector<std::string>{"2011/01/05 10:00:00", "2011/01/05 10:00:03",
                                                 "2011/01/05 23:59:59"}));
  EXPECT_EQ(Column(1)[1], "UPS battery low");

  Saying<QCheckBox>(form, "Mains power failed").setChecked(false);
  EXPECT_EQ(Column(0).size(), 3U);  // The boxes count once the list is asked for anew.
  Press("Refresh");
  EXPECT_EQ(Column(0), std::vector<std::string>{"2011/01/05 10:00:03"});
  Press("Select none");
  EXPECT_TRUE(Column(0).empty());
  Press("Select all");
  EXPECT_EQ(Column(0).size(), 3U);

  auto& bubble = Nth<Bubble>(form);
  test::Hover(Month(), Month().PictureRects(5).at(1).center());
  EXPECT_EQ(bubble.text(), QStringLiteral("UPS battery low"));
  test::Hover(Month(), Month().CellRect(0).center());
  EXPECT_TRUE(bubble.isHidden());

  Loadlanguage(1);
  language(Form6::kNumber);
  EXPECT_EQ(Column(1)[1], EventText[6]);
  ClickDay(7);
  EXPECT_NO_THROW(Saying(DayList(), LangText[texts::kEventLogNoEvents]));
  Nth<QComboBox>(form, 1).setCurrentIndex(1);
  EXPECT_TRUE(DayList().isHidden());  // It showed a day of January.
}

TEST_F(EventLogTest, DayListStaysInsideAndDoesNotFollowEdges) {
  Form6& form = Open();
  ClickDay(1);
  const QRect client = form.Client()->rect();
  const auto dragBy = [&](QPoint travel) {
    test::Drag(DayList(), {20, 10}, QPoint(20, 10) + travel);
  };
  QRect corner = DayList().rect();
  corner.moveBottomRight(client.bottomRight());
  dragBy(corner.topLeft() - DayList().pos() - QPoint(9, 9));
  EXPECT_EQ(DayList().pos(), corner.topLeft());
  form.resize(form.size() + QSize(100, 100));
  test::Settle();
  EXPECT_EQ(DayList().pos(), corner.topLeft());
  dragBy({0, 500});  // Off the lower edge; the next change of size brings it back.
  form.resize(form.size() - QSize(10, 10));
  test::Settle();
  EXPECT_TRUE(form.Client()->rect().contains(DayList().geometry()));
}

}  // namespace
}  // namespace varek
