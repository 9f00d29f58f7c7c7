// The schedule calendar: its time boxes key by key, and every path of saving, editing and deleting
// through the real controls against the rows of the table.
#include "views/schedule_calendar.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QWheelEvent>

#include "core/error_list.h"
#include "platform/database.h"
#include "platform/events.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"
#include "records/databases.h"
#include "settings/language.h"
#include "support/monitor_fixture.h"
#include "views/delete_panel.h"
#include "views/kit/month_grid.h"
#include "views/schedule_dialog.h"
#include "views/schedule_list.h"
#include "views/time_box.h"

namespace varek {
namespace {

using Texts = std::vector<std::string>;

TEST(TimeMask, FollowsTheKeys) {
  struct Case {
    TimeMask before;
    const char* keys;  ///< "<" is Backspace
    TimeMask after;
  };
  for (const Case& c : {Case{{"12:00", 0}, "0945", {"09:45", 5}},
                        {{"12:00", 2}, "5", {"12:50", 4}},  // a click before the colon
                        {{"12:00", 0}, "3", {"12:00", 0}},
                        {{"20:00", 1}, "43", {"23:00", 3}},  // no hour ends in that 4
                        {{"19:30", 0}, "2", {"20:30", 1}},   // not 29
                        {{"12:00", 3}, "659", {"12:59", 5}},
                        {{"12:34", 5}, "5", {"12:34", 5}},  // at the end
                        {{"12:34", 0}, "a:-. ", {"12:34", 0}},
                        {{"12:34", 5}, "<", {"12:30", 4}},
                        {{"12:34", 3}, "<", {"10:34", 1}},  // over the colon
                        {{"12:34", 2}, "<", {"10:34", 1}},
                        {{"12:34", 5}, "<<<<<2359", {"23:59", 5}}}) {
    TimeMask mask = c.before;
    for (const char* key = c.keys; *key != '\0'; ++key)
      *key == '<' ? mask.Backspace() : mask.Type(*key);
    EXPECT_EQ(mask.text, c.after.text) << c.before.text << " " << c.keys;
    EXPECT_EQ(mask.caret, c.after.caret) << c.before.text << " " << c.keys;
  }
}

class ScheduleCalendarTest : public test::MonitorTest {
 protected:
  ScheduleCalendarTest() {
    clock.SetNow({2010, 3, 10, 12, 0, 0});  // A Wednesday.
    test::InstallPictures(Folder());
    Loadlanguage(0);
    DataCenter.UPSShutdownBuffer = 1;
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
    platform::DoEvents();
    return Form();
  }

  static Form4& Form() { return ScheduleCalendar().Get(); }

  template <typename Control>
  static Control& Find(const char* name) {
    return *Form().findChild<Control*>(QString::fromLatin1(name));
  }

  static void Click(const char* button) {
    Find<QPushButton>(button).click();
    platform::DoEvents();
  }

  static void Mouse(QWidget& widget, QEvent::Type type, QPointF at) {
    QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &event);
  }

  static void ClickDay(int day) {
    MonthGrid& month = Form().Month();
    Mouse(month, QEvent::MouseButtonPress, month.CellRect(month.CellOf(day)).center());
  }

  static void Press(QWidget& widget, int key, const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
  }

  static void TypeTime(const char* box, const char* digits) {
    auto& field = Find<QLineEdit>(box);
    field.setCursorPosition(0);
    for (const char* digit = digits; *digit != '\0'; ++digit)
      Press(field, *digit, QString(QChar::fromLatin1(*digit)));
  }

  static void Fill(const char* time, int action, int recurrence, int days, const char* restart) {
    Find<QComboBox>("Combo7").setCurrentIndex(action);
    Find<QComboBox>("Combo3").setCurrentIndex(recurrence);
    Find<QComboBox>("Combo4").setCurrentIndex(days);
    TypeTime("Text1", time);
    TypeTime("Text2", restart);
  }

  /// The number of each row of the list.
  static Texts Listed() {
    auto& list = Find<QTableWidget>("MSFlexGrid1");
    Texts numbers;
    for (int row = 0; row < list.rowCount(); ++row)
      numbers.push_back(list.item(row, 3)->text().toStdString());
    return numbers;
  }

  static size_t PicturesOn(int day) { return Form().Month().PictureRects(day).size(); }
};

TEST_F(ScheduleCalendarTest, ATimeBoxAlwaysHoldsATime) {
  TimeBox box(nullptr, "box");
  const auto press = [&](int caret, int key, const char* text) {
    box.setCursorPosition(caret);
    Press(box, key, QString::fromLatin1(text));
    return box.Time();
  };
  EXPECT_EQ(press(0, Qt::Key_0, "0"), "02:00");
  EXPECT_EQ(box.cursorPosition(), 1);
  EXPECT_EQ(press(4, Qt::Key_7, "7"), "02:07");
  EXPECT_EQ(press(3, Qt::Key_Backspace, "\b"), "00:07");
  EXPECT_EQ(press(0, Qt::Key_Delete, "\x7f"), "00:07");
  QFocusEvent byTab(QEvent::FocusIn, Qt::TabFocusReason);
  const auto reach = [&](bool tab) {
    box.setCursorPosition(5);
    tab ? void(QApplication::sendEvent(&box, &byTab))
        : Mouse(box, QEvent::MouseButtonDblClick, box.rect().center());
    for (const char* digit : {"1", "9", "4"}) Press(box, *digit, QString::fromLatin1(digit));
    return box.Time();
  };
  EXPECT_EQ(reach(true), "19:47");
  box.SetTime("00:07");
  EXPECT_EQ(reach(false), "19:47");
  box.SetTime("00:07");
  box.selectAll();
  box.del();
  box.insert(QStringLiteral("25:00"));
  EXPECT_EQ(box.Time(), "00:07");
  for (const char* time : {"7:05", "nonsense", "24:00", "2026/1/1", ""}) box.SetTime(time);
  EXPECT_EQ(box.Time(), "07:05");
}

TEST_F(ScheduleCalendarTest, ShowsTodayThenWhatIsChosen) {
  Add("T", "Day", "2010/3/15");
  Add("L", "M31");
  Add("T", "Null", "2010/3/15");
  Add("B0100", "W3", "2010/3/10", "109:41");
  Open();
  EXPECT_EQ(Find<QLabel>("Label1").text(), QStringLiteral("2010 March"));
  EXPECT_EQ(Listed(), (Texts{"2", "4"}));  // Its own day, though its code is the 31st.
  EXPECT_EQ(
      (std::array{PicturesOn(10), PicturesOn(14), PicturesOn(15), PicturesOn(17), PicturesOn(31)}),
      (std::array<size_t, 5>{2, 0, 1, 2, 3}));
  auto& list = Find<QTableWidget>("MSFlexGrid1");
  Texts row;
  for (int place = 0; place < 5; ++place)
    row.push_back(list.item(1, list.horizontalHeader()->logicalIndex(place))->text().toStdString());
  EXPECT_EQ(row, (Texts{"4", "08:00", "Shut down computer and UPS, restart", "Wednesday",
                        "09:41 next day"}));
  ClickDay(31);
  EXPECT_EQ(Listed(), (Texts{"1", "2", "4"}));
  EXPECT_EQ(ShownEntries.count, 3);
  ClickDay(0);  // The cell before the first.
  EXPECT_EQ(Form().Selected().day, 31);
  Find<QComboBox>("Combo2").setCurrentIndex(1);
  EXPECT_EQ(Form().Selected().day, 28);
  EXPECT_EQ(Listed(), Texts{});
  Find<QComboBox>("Combo1").setCurrentIndex(11);
  EXPECT_EQ(Listed(), (Texts{"1"}));
  EXPECT_EQ(Find<QLabel>("Label1").text(), QStringLiteral("2011 February"));

  ScheduleCalendar().Unload();
  clock.SetNow({2026, 8, 31, 12, 0, 0});  // Six weeks, in no year of the list.
  Open();
  EXPECT_EQ(Find<QComboBox>("Combo1").currentIndex(), -1);
  EXPECT_EQ(Form().Month().CellOf(31), 36);
  EXPECT_EQ(Listed(), (Texts{"1", "2"}));
}

TEST_F(ScheduleCalendarTest, ThePresentMonthIsNeverLost) {
  clock.SetNow({2026, 8, 31, 12, 0, 0});
  Add("T", "Day", "2026/8/1");
  Form4& form = Open();
  auto& years = Find<QComboBox>("Combo1");
  QWheelEvent notch({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, {}, false);
  QApplication::sendEvent(&years, &notch);
  EXPECT_EQ(form.Selected().year, 2026);
  Press(years, Qt::Key_Down);
  EXPECT_EQ(Find<QLabel>("Label1").text(), QStringLiteral("2000 August"));
  Click("Today");
  EXPECT_EQ(Find<QLabel>("Label1").text(), QStringLiteral("2026 August"));
  EXPECT_EQ(years.currentIndex(), -1);
  EXPECT_EQ(form.Selected().day, 31);
  EXPECT_EQ(Listed(), Texts{"1"});

  Find<QTableWidget>("MSFlexGrid1").selectRow(0);
  Click("NewEntry");
  Click("Command5");
  Find<QPushButton>("Command1").setFocus();  // In the dialog, below the delete panel.
  QWidget* const panels[] = {&form.Dialog(), &form.Deleting(), &form.Entries()};
  for (QWidget* innermost : panels) {
    EXPECT_FALSE(innermost->isHidden());
    Press(*form.focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(innermost->isHidden());
    EXPECT_EQ(form.focusWidget(), &form.Month());
  }
  Press(*form.focusWidget(), Qt::Key_Escape);
  platform::DoEvents();
  EXPECT_FALSE(ScheduleCalendar().IsLoaded());
}

TEST_F(ScheduleCalendarTest, NewEntriesAreSavedOrRefused) {
  Open();
  ClickDay(16);  // A Tuesday.
  Click("NewEntry");
  EXPECT_FALSE(Find<QComboBox>("Combo4").isEnabled() || Find<QLineEdit>("Text2").isEnabled());
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
                        {"2300", 4, 0, 0, "0100", nullptr},
                        {"1200", 6, 0, 0, "1201", nullptr},
                        {"0000", 6, 0, 6, "2241", nullptr}}) {
    Texts rows = Table();
    if (c.row) rows.push_back(std::to_string(rows.size() + 1) + " 2010-03-16" + c.row);
    messages.clear();
    Fill(c.time, c.action, c.recurrence, c.days, c.restart);
    EXPECT_EQ(Find<QComboBox>("Combo4").isEnabled(), c.action == 4 || c.action == 6);
    Click("Command1");
    EXPECT_EQ(Table(), rows);
    EXPECT_EQ(messages, c.row ? Texts{} : Texts{LangText[263]});
    EXPECT_EQ(Listed().size(), rows.size());
    EXPECT_FALSE(Form().Dialog().isHidden());
  }
  EXPECT_EQ(PicturesOn(16), 8U);
  EXPECT_EQ(RunEntries.count, 0);  // All begin after today.
  Click("Command2");
  EXPECT_TRUE(Form().Dialog().isHidden());
}

TEST_F(ScheduleCalendarTest, AnEditedEntryGoesToTheSelectedDate) {
  Add("R0119", "W3", "2010/3/10", "019:41");
  Open();
  Click("Command4");  // Nothing is selected.
  EXPECT_TRUE(Form().Dialog().isHidden());
  auto& list = Find<QTableWidget>("MSFlexGrid1");
  list.selectRow(0);
  Click("Command4");
  const ScheduleForm fields = Form().Dialog().Fields();
  EXPECT_EQ((std::array{fields.action, fields.recurrence, fields.restartDays}),
            (std::array{4, 2, 0}));
  EXPECT_EQ(fields.time, "08:00");
  ClickDay(11);
  Fill("0800", 4, 2, 0, "0800");
  Click("Command1");
  EXPECT_EQ(messages, Texts{"時間設定錯誤"});
  EXPECT_FALSE(Form().Dialog().isHidden());
  TypeTime("Text2", "0801");  // No delay is one that only an edit may leave.
  Click("Command1");
  EXPECT_EQ(Table(), Texts{"1 2010-03-11 08:00 R0000 W4 008:01"});
  EXPECT_TRUE(Form().Dialog().isHidden());
  EXPECT_EQ(Listed(), Texts{"1"});

  list.selectRow(0);
  Click("Command4");
  Fill("0900", 0, 1, 0, "0000");
  Click("Command3");  // Put away: what is saved now is new.
  EXPECT_TRUE(Form().Entries().isHidden());
  Click("Command1");
  EXPECT_EQ(Table(), (Texts{"1 2010-03-11 08:00 R0000 W4 008:01", "2 2010-03-11 09:00 T Day "}));

  list.selectRow(0);
  delschdeule(1);  // From elsewhere.
  Click("Command2");
  Click("Command4");
  EXPECT_TRUE(Form().Dialog().isHidden());
}

TEST_F(ScheduleCalendarTest, EveryWayOfDeleting) {
  const std::string repeating = "1 2010-03-10 08:00 T Day ", once = "2 2010-03-10 08:00 L Null ",
                    mark = "3 2010-03-10 08:00 D9 W3 ";
  struct Case {
    int row;     ///< that is selected, or -1
    int choice;  ///< button of the delete panel, or -1 when it must not come up
    Texts table;
    Texts listed;
  };
  for (const Case& c :
       {Case{-1, -1, {repeating, once, mark}, {"1", "2", "3"}},
        {1, -1, {repeating, mark}, {"1", "3"}},
        {2, -1, {repeating, once}, {"1", "2"}},
        {0, 0, {repeating, once, mark, "4 2010-03-10 08:00 D1 Null "}, {"2", "3", "4"}},
        {0, 1, {once, mark}, {"2", "3"}},
        {0, 2, {repeating, once, mark, "4 2010-03-10 08:00 D1 W3 "}, {"2", "3", "4"}},
        {0, 3, {repeating, once, mark, "4 2010-03-10 08:00 D1 M10 "}, {"2", "3", "4"}}}) {
    test::InstallDatabases(Folder());
    Add("T", "Day");
    Add("L", "Null");
    Add("D9", "W3");
    Form4& form = Open();
    if (c.row >= 0) Find<QTableWidget>("MSFlexGrid1").selectRow(c.row);
    Click("Command5");
    EXPECT_EQ(form.Deleting().isHidden(), c.choice < 0);
    EXPECT_LE(
        (form.Deleting().geometry().center() - form.Client()->rect().center()).manhattanLength(),
        c.choice < 0 ? 9999 : 2);
    if (c.choice >= 0) form.Deleting().Button(static_cast<size_t>(c.choice)).click();
    EXPECT_TRUE(form.Deleting().isHidden());
    EXPECT_EQ(Table(), c.table);
    EXPECT_EQ(Listed(), c.listed);
    ScheduleCalendar().Unload();
  }
  EXPECT_EQ(RunEntries.entries[0].number, kHole);  // The last change reached today's run list.
}

TEST_F(ScheduleCalendarTest, ADayTakesAHundredEntries) {
  for (int number = 1; number <= 101; ++number) Add(number == 1 ? "D5" : "T", "Null");
  Add("C", "Null", "2010/3/11");
  Open();
  platform::DoEvents();
  EXPECT_EQ(messages, Texts{"DATA EVENT ERROR"});
  EXPECT_EQ(Listed().size(), 100U);  // The mark did not apply.
  EXPECT_EQ(PicturesOn(11), 0U);
  EXPECT_EQ(ShownEntries.count, 101);
  EXPECT_EQ(DataCenter.DebugLines[0],
            "2010/03/10 12:00:00  Load todayschedule error! more then 100 event!");
  Find<QTableWidget>("MSFlexGrid1").selectRow(99);
  messages.clear();
  Click("Command5");
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(Listed().size(), 99U);
  EXPECT_EQ(PicturesOn(11), 1U);
}

TEST_F(ScheduleCalendarTest, OpensWithoutTheTableButNotWithoutPictures) {
  platform::Database(platform::ProgramPath(kEventFile)).DeleteTable(kScheduleTable);
  Open();
  EXPECT_EQ(Listed(), Texts{});
  EXPECT_EQ(Form13::List1().size(), 1U);
  EXPECT_TRUE(DataCenter.FormOpen[Form4::kNumber]);
  ScheduleCalendar().Unload();
  EXPECT_FALSE(DataCenter.FormOpen[Form4::kNumber]);
  platform::SetProgramFolder("/nonexistent");
  EXPECT_THROW(ScheduleCalendar().Get(), platform::RuntimeError);
}

}  // namespace
}  // namespace varek
