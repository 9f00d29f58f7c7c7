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

using Row = std::pair<std::string, int>;  ///< its time and its type

class EventLogTest : public test::WindowTest {
 protected:
  static void Write(const std::vector<Row>& rows) {
    platform::Database database(platform::ProgramPath(kEventFile));
    const auto table = database.OpenRecordset(kEventTable);
    database.BeginTransaction();
    for (const auto& [time, type] : rows) {
      table->AddNew();
      table->Set(0, time);
      table->Set(1, int64_t{type});
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

  std::vector<std::string> times;
  for (const LoggedEvent* event : month.Listed(31, EventKinds().set()))
    times.push_back(event->time);
  EXPECT_EQ(times, (std::vector<std::string>{"2010/12/31 23:59:59", "2010/12/31 10:00:00",
                                             "2010/12/31 09:00:00"}));

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
  grid.OnClick([&](int day) { clicked.push_back(day); });
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
  EXPECT_NO_THROW(Saying(DayList(), "2011/1/5"));
  EXPECT_EQ(Column(0).at(2), "2011/01/05 23:59:59");
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
  ClickDay(6);
  Nth<QTableWidget>(form).setFocus();
  Key(test::FocusOf(form), Qt::Key_Escape);
  EXPECT_TRUE(DayList().isHidden());
  EXPECT_EQ(form.focusWidget(), &Month());
}

TEST_F(EventLogTest, DayListStaysInsideAndDoesNotFollowEdges) {
  Form6& form = Open();
  ClickDay(1);
  const QRect client = form.Client()->rect();
  const auto dragBy = [](QPoint by) { test::Drag(DayList(), {20, 10}, QPoint(20, 10) + by); };
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
