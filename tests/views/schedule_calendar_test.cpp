// The schedule calendar: its time boxes, and its controls against the rows of the table.
#include "views/schedule/schedule_calendar.h"

#include <gtest/gtest.h>

#include "platform/storage/database.h"
#include "support/windows.h"
#include "views/kit/calendar/month_grid.h"
#include "views/schedule/delete_panel.h"
#include "views/schedule/schedule_dialog.h"
#include "views/schedule/schedule_list.h"
#include "views/schedule/time_box.h"

namespace varek {
namespace {

using Texts = std::vector<std::string>;
using test::Nth, test::Saying;

class ScheduleCalendarTest : public test::WindowTest {
 protected:
  ScheduleCalendarTest() {
    clock.SetNow({2010, 3, 10, 12, 0, 0});  // A Wednesday.
    DataCenter.settings.UPSShutdownBuffer = 1;
  }

  static void Add(const std::string& event, const std::string& rept,
                  const std::string& date = "2010/3/10", const std::string& note = "") {
    addschdeule(date, "08:00", event, rept, note);
  }

  /// The rows of the table, their columns separated by blanks.
  static Texts Table() {
    platform::Database database(platform::ProgramPath(kEventFile));
    Texts lines;
    for (auto rows = database.OpenRecordset(kScheduleTable); !rows->Eof(); rows->MoveNext()) {
      lines.push_back(platform::ValueText(rows->Get(0)));
      for (const char* column : {"date", "time", "event", "rept", "note"})
        lines.back() += " " + platform::ValueText(rows->Get(column));
    }
    return lines;
  }

  static Form4& Open() {
    ShowScheduleCalendar();
    test::Settle();
    return Form();
  }

  static Form4& Form() { return ScheduleCalendar().Get(); }
  static QComboBox& Years() { return Nth<QComboBox>(Form()); }
  static QComboBox& Months() { return Nth<QComboBox>(Form(), 1); }
  static MonthGrid& Month() { return Nth<MonthGrid>(Form()); }
  static ScheduleList& Entries() { return Nth<ScheduleList>(Form()); }
  static ScheduleDialog& Dialog() { return Nth<ScheduleDialog>(Form()); }
  static DeletePanel& Deleting() { return Nth<DeletePanel>(Form()); }
  static std::string SelectedDate() { return Nth<QLabel>(Entries()).text().toStdString(); }
  static QTableWidget& List() { return Nth<QTableWidget>(Entries()); }
  /// In the order of the dialog: time, action, recurrence, time of the restart, its day.
  static TimeBox& Time(size_t which) { return Nth<TimeBox>(Dialog(), which); }
  static QComboBox& Choice(size_t which) { return Nth<QComboBox>(Dialog(), which); }

  /// A button of the window, or of one of its panels.
  static void Click(const std::string& button, QWidget& panel = Form()) {
    test::Click(Saying<QPushButton>(panel, button));
  }
  static void ClickEdit() {
    List().selectRow(0);
    Click("Edit", Entries());
  }

  static void ClickDay(int day) {
    test::Click(Month(), Month().CellRect(Month().CellOf(day)).center());
  }

  static void TypeTime(size_t which, const char* digits) {
    Time(which).setCursorPosition(0);
    test::Type(Time(which), digits);
  }

  static void Fill(const char* time, int action, int recurrence, int days, const char* restart) {
    Choice(0).setCurrentIndex(action);
    Choice(1).setCurrentIndex(recurrence);
    Choice(2).setCurrentIndex(days);
    TypeTime(0, time);
    TypeTime(1, restart);
  }

  /// The number of each row of the list.
  static Texts Listed() {
    Texts numbers;
    for (int row = 0; row < List().rowCount(); ++row)
      numbers.push_back(List().item(row, 3)->text().toStdString());
    return numbers;
  }

  static size_t PicturesOn(int day) { return Month().PictureRects(day).size(); }
};

TEST_F(ScheduleCalendarTest, ATimeBoxAlwaysHoldsATime) {
  TimeBox box(nullptr, "box");
  for (const auto& [before, caret, keys, after, caretAfter] :
       {std::tuple{"12:00", 0, "0945", "09:45", 5},
        {"12:00", 2, "5", "12:50", 4},  // a click before the colon
        {"12:00", 0, "3", "12:00", 0},
        {"20:00", 1, "43", "23:00", 3},  // no hour ends in that 4
        {"19:30", 0, "2", "20:30", 1},   // not 29
        {"12:00", 3, "659", "12:59", 5},
        {"12:34", 5, "5", "12:34", 5},  // at the end
        {"12:34", 0, "a:-. \x7f", "12:34", 0},
        {"12:34", 3, "\b", "10:34", 1},  // over the colon
        {"12:34", 2, "\b", "10:34", 1},
        {"12:34", 5, "\b\b\b\b\b2359", "23:59", 5}}) {
    box.SetTime(before);
    box.setCursorPosition(caret);
    test::Type(box, keys);
    EXPECT_EQ(std::tuple(box.Time(), box.cursorPosition()), std::tuple(after, caretAfter)) << keys;
  }
  for (const bool tab : {true, false}) {  // Tab and a double click begin with the first digit.
    box.SetTime("00:07");
    box.setCursorPosition(5);
    tab ? test::Tab(box, QEvent::FocusIn)
        : test::Mouse(box, QEvent::MouseButtonDblClick, box.rect().center());
    test::Type(box, "194");
    EXPECT_EQ(box.Time(), "19:47");
  }
  box.selectAll();
  box.insert(QStringLiteral("25:00"));
  EXPECT_EQ(box.Time(), "19:47");
  for (const char* time : {"7:05", "nonsense", "24:00", ""}) box.SetTime(time);
  EXPECT_EQ(box.Time(), "07:05");
}

TEST_F(ScheduleCalendarTest, ShowsTodayThenWhatIsChosen) {
  Add("T", "Day", "2010/3/15");
  Add("L", "M31");
  Add("T", "Null", "2010/3/15");
  Add("B0100", "W3", "2010/3/10", "109:41");
  Open();
  EXPECT_NO_THROW(Saying(Form(), "2010 March"));
  EXPECT_EQ(Listed(), (Texts{"2", "4"}));  // Its own day, though its code is the 31st.
  EXPECT_EQ((std::array{PicturesOn(10), PicturesOn(14), PicturesOn(31)}),
            (std::array<size_t, 3>{2, 0, 3}));
  Texts row;
  for (int place = 0; place < 5; ++place)
    row.push_back(
        List().item(1, List().horizontalHeader()->logicalIndex(place))->text().toStdString());
  EXPECT_EQ(row, (Texts{"4", "08:00", "Shut down computer and UPS, restart", "Wednesday",
                        "09:41 next day"}));
  ClickDay(31);
  EXPECT_EQ(Listed(), (Texts{"1", "2", "4"}));
  ClickDay(0);  // The cell before the first.
  EXPECT_EQ(SelectedDate(), "2010/3/31");
  Months().setCurrentIndex(1);
  EXPECT_EQ(SelectedDate(), "2010/2/28");
  EXPECT_EQ(Listed(), Texts{});
  Years().setCurrentIndex(11);
  EXPECT_EQ(Listed(), (Texts{"1"}));
  EXPECT_NO_THROW(Saying(Form(), "2011 February"));
}

TEST_F(ScheduleCalendarTest, ThePresentMonthIsNeverLost) {
  clock.SetNow({2026, 8, 31, 12, 0, 0});
  Add("T", "Day", "2026/8/1");
  Open();
  EXPECT_EQ(Years().currentIndex(), -1);
  EXPECT_EQ(Years().itemText(11), QStringLiteral("2011"));
  test::Wheel(Years());
  EXPECT_EQ(SelectedDate(), "2026/8/31");
  test::Key(Years(), Qt::Key_Down);
  EXPECT_EQ(SelectedDate(), "2000/8/31");
  Click("Today");
  EXPECT_EQ(SelectedDate(), "2026/8/31");
  EXPECT_EQ(Years().currentIndex(), -1);
  EXPECT_EQ(Listed(), Texts{"1"});
}

TEST_F(ScheduleCalendarTest, EscapeClosesTheInnermostPanelFirst) {
  Add("T", "Day");
  Form4& form = Open();
  List().selectRow(0);
  Click("New entry");
  Click("Delete", Entries());
  Saying<QPushButton>(Dialog(), "Save").setFocus();  // Below the delete panel.
  QWidget* const panels[] = {&Dialog(), &Deleting(), &Entries()};
  for (QWidget* innermost : panels) {
    EXPECT_FALSE(innermost->isHidden());
    test::Key(test::FocusOf(form), Qt::Key_Escape);
    EXPECT_TRUE(innermost->isHidden());
    EXPECT_EQ(form.focusWidget(), &Month());
  }
  test::Key(test::FocusOf(form), Qt::Key_Escape);
  EXPECT_FALSE(ScheduleCalendar().IsLoaded());
}

TEST_F(ScheduleCalendarTest, NewEntriesAreSavedOrRefused) {
  Open();
  ClickDay(16);  // A Tuesday.
  Click("New entry");
  EXPECT_FALSE(Choice(2).isEnabled() || Time(1).isEnabled());
  struct Case {
    const char* time;
    int action, recurrence, days;
    const char* restart;
    const char* row;  ///< null when it is refused
  };
  for (const Case& c : {Case{"0630", 0, 0, 0, "1200", " 06:30 T Null "},
                        {"0630", 1, 1, 0, "0000", " 06:30 L Day "},
                        {"0630", 2, 2, 0, "0000", " 06:30 C W2 "},
                        {"0630", 3, 3, 0, "0000", " 06:30 S M16 "},
                        {"2300", 4, 0, 1, "0100", " 23:00 R0119 Null 101:00"},
                        {"0630", 5, 0, 0, "0000", " 06:30 A Null "},
                        {"1200", 6, 1, 0, "1202", " 12:00 B0001 Day 012:02"},
                        {"0630", 7, 0, 0, "0000", " 06:30 M Null "},
                        {"1200", 6, 0, 0, "1201", nullptr}}) {
    Texts rows = Table();
    if (c.row) rows.push_back(std::to_string(rows.size() + 1) + " 2010-03-16" + c.row);
    messages.clear();
    Fill(c.time, c.action, c.recurrence, c.days, c.restart);
    EXPECT_EQ(Choice(2).isEnabled(), c.action == 4 || c.action == 6);
    Click("Save");
    EXPECT_EQ(Table(), rows);
    EXPECT_EQ(messages, c.row ? Texts{} : Texts{LangText[texts::kRestartOutOfRange]});
    EXPECT_EQ(Listed().size(), rows.size());
    EXPECT_FALSE(Dialog().isHidden());
  }
  EXPECT_EQ(PicturesOn(16), 8U);
  Click("Cancel");
  EXPECT_TRUE(Dialog().isHidden());
}

TEST_F(ScheduleCalendarTest, AnEditedEntryGoesToTheSelectedDate) {
  Add("R0119", "W3", "2010/3/10", "019:41");
  Open();
  Click("Edit", Entries());  // Nothing is selected.
  EXPECT_TRUE(Dialog().isHidden());
  ClickEdit();
  const ScheduleForm fields = Dialog().Fields();
  EXPECT_EQ(std::tuple(fields.action, fields.recurrence, fields.restartDays, fields.time),
            std::tuple(4, 2, 0, "08:00"));
  ClickDay(11);
  Fill("0800", 4, 2, 0, "0800");
  Click("Save");
  EXPECT_EQ(messages, Texts{"時間設定錯誤"});
  TypeTime(1, "0801");  // No delay is one that only an edit may leave.
  Click("Save");
  EXPECT_EQ(Table(), Texts{"1 2010-03-11 08:00 R0000 W4 008:01"});
  EXPECT_EQ(Listed(), Texts{"1"});

  ClickEdit();
  delschdeule(1);  // From elsewhere.
  Click("Cancel");
  Click("Edit", Entries());
  EXPECT_TRUE(Dialog().isHidden());
}

/// However the edit was left, what is saved then is a row of its own.
TEST_F(ScheduleCalendarTest, AnEditThatWasLeftIsNotOverwritten) {
  const std::pair<const char*, std::function<void()>> ways[] = {
      {"cancelled, then a new one", [] { Click("Cancel"), Click("New entry"); }},
      {"a new one at once", [] { Click("New entry"); }},
      {"the list put away", [] { Click("Close", Entries()); }}};
  for (const auto& [way, leave] : ways) {
    test::InstallDatabases(Folder());
    Add("T", "W3");
    Open();
    ClickEdit();
    leave();
    Fill("0900", 0, 1, 0, "0000");
    Click("Save");
    EXPECT_EQ(Table(), (Texts{"1 2010-03-10 08:00 T W3 ", "2 2010-03-10 09:00 T Day "})) << way;
    ScheduleCalendar().Unload();
  }
}

TEST_F(ScheduleCalendarTest, EveryWayOfDeleting) {
  struct Case {
    int row;             ///< that is selected, or -1
    const char* choice;  ///< button of the delete panel, null when it must not come up
    Texts listed;
    const char* mark = nullptr;  ///< the new row of the table
  };
  for (const Case& c :
       {Case{-1, nullptr, {"1", "2"}},
        {1, nullptr, {"1"}},
        {0, "Delete this date only", {"2", "3"}, "3 2010-03-10 08:00 D1 Null "},
        {0, "Delete whole entry", {"2"}},
        {0, "Delete weekly from here", {"2", "3"}, "3 2010-03-10 08:00 D1 W3 "},
        {0, "Delete monthly from here", {"2", "3"}, "3 2010-03-10 08:00 D1 M10 "}}) {
    test::InstallDatabases(Folder());
    Add("T", "Day");
    Add("L", "Null");
    Open();
    if (c.row >= 0) List().selectRow(c.row);
    Click("Delete", Entries());
    EXPECT_EQ(Deleting().isHidden(), !c.choice);
    if (c.choice) Click(c.choice, Deleting());
    EXPECT_TRUE(Deleting().isHidden());
    EXPECT_EQ(Listed(), c.listed);
    if (c.mark) {
      EXPECT_EQ(Table().at(2), c.mark);
    }
    ScheduleCalendar().Unload();
  }
  EXPECT_EQ(RunEntries.entries[0].number, kHole);  // The last change reached today's run list.
}

TEST_F(ScheduleCalendarTest, ADayTakesAHundredEntriesAndOpensWithoutATable) {
  for (int number = 1; number <= 101; ++number) Add(number == 1 ? "D5" : "T", "Null");
  Add("C", "Null", "2010/3/11");
  Open();
  EXPECT_EQ(messages, Texts{"DATA EVENT ERROR"});
  EXPECT_EQ(Listed().size(), 100U);  // The mark did not apply.
  EXPECT_EQ(PicturesOn(11), 0U);
  List().selectRow(99);
  Click("Delete", Entries());
  EXPECT_EQ(Listed().size(), 99U);
  EXPECT_EQ(PicturesOn(11), 1U);

  ScheduleCalendar().Unload();
  platform::Database(platform::ProgramPath(kEventFile)).DeleteTable(kScheduleTable);
  Open();
  EXPECT_EQ(Listed(), Texts{});
}

}  // namespace
}  // namespace varek
