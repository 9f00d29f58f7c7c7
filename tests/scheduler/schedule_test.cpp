// The schedule on real tables, its runner on a stepped clock.

#include <chrono>
#include <filesystem>
#include <utility>

#include "core/data_center.h"
#include "core/forms.h"
#include "core/link_record.h"
#include "platform/errors/runtime_error.h"
#include "platform/storage/database.h"
#include "platform/time/timers.h"
#include "records/files/databases.h"
#include "records/shutdown/system_countdown.h"
#include "scheduler/schedule_edit.h"
#include "scheduler/schedule_model.h"
#include "scheduler/schedule_runner.h"
#include "support/monitor_fixture.h"
#include "texts/language.h"

namespace varek {
namespace {

namespace chr = std::chrono;

using Numbers = std::vector<int>;
using Texts = std::vector<std::string>;

class ScheduleTest : public test::MonitorTest {
 protected:
  ScheduleTest() {
    test::InstallPictures(Folder());
    Loadlanguage(0);
    DataCenter.settings.UPSShutdownBuffer = 1;
    DataCenter.settings.SystemShutdownBuffer = 5;
  }

  static void Add(const std::string& event, const std::string& rept = "Day",
                  const std::string& date = "2026/3/10", const std::string& time = "12:00") {
    addschdeule(date, time, event, rept, "");
  }

  Texts Table() const {
    platform::Database database(Folder() + "/database/Event.mdb");
    Texts lines;
    for (auto rows = database.OpenRecordset(kScheduleTable); !rows->Eof(); rows->MoveNext()) {
      lines.push_back(platform::ValueText(rows->Get(0)));
      for (const char* column : {"date", "time", "event", "rept", "note"})
        lines.back() += " " + platform::ValueText(rows->Get(column));
    }
    return lines;
  }

  /// What the tick of that moment leaves for the link.
  std::string Tick(const platform::DateTime& now) {
    clock.SetNow(now);
    Link.PendingCommand.clear();
    RunSchedule();
    return Link.PendingCommand;
  }
};

Numbers NumbersOf(const std::vector<ScheduleEntry>& entries) {
  Numbers numbers;
  for (const ScheduleEntry& entry : entries) numbers.push_back(entry.number);
  return numbers;
}

Numbers Shown(int year, int month, int day) {
  ReNewTodayEvent(year, month, day);
  return NumbersOf(ShownEntries.entries);
}

TEST_F(ScheduleTest, EachActionStartsItsCountdownsInItsOrder) {
  Texts sent;
  const auto take = [&] {
    if (!Link.PendingCommand.empty()) sent.push_back(std::exchange(Link.PendingCommand, ""));
  };
  platform::Timer poll("poll", take, 100);
  constexpr int kNone = -1;
  // The seconds at the end of the tick, of which a start of the unit's takes two.
  const std::tuple<const char*, float, Texts, int> cases[] = {
      {"T", 220, {"T"}, kNone},
      {"L", 220, {"TL"}, kNone},
      {"C", 0, {"CT"}, kNone},
      {"S", 220, {"C", "S01R9999"}, kNone},
      {"R1439", 220, {"C", "S01R1439"}, kNone},
      {"M", 220, {}, 300},
      {"A", 220, {"C", "S01R9999"}, 298},
      {"B0030", 220, {"C", "S01R0030"}, 300},
      {"B0030", 0, {}, 300},
      {"D7", 220, {}, kNone}};
  for (const auto& [event, output, expected, seconds] : cases) {
    SCOPED_TRACE(event);
    test::InstallDatabases(Folder());
    sent.clear();
    DataCenter.readings.OutputVoltage = output;
    LoadedRunDate = {};
    Add(event);
    clock.SetNow({2026, 3, 10, 12, 0, 0});
    RunSchedule();
    EXPECT_EQ(SystemCountdown().IsLoaded() ? SystemCountdown().Get().Seconds() : kNone, seconds);
    clock.Advance(1000);
    EXPECT_EQ(sent, expected);
    UnloadForm(10);
    UnloadForm(11);
  }
}

TEST_F(ScheduleTest, TheRunnerFollowsTheDateAndTheMinuteAlone) {
  Add("T", "Day", "2026/3/10", "00:00");
  Add("L", "Null", "2026/3/11", "7:05");
  Add("T", "Null", "2026/3/12", "09:00");
  Add("C", "Null", "2026/3/12", "09:00");
  Add("S", "Null", "2026/3/13", "09:00");
  Add("T", "Null", "2026/3/13", "09:00");
  DataCenter.readings.OutputVoltage = 220;
  const std::pair<platform::DateTime, const char*> ticks[] = {
      {{2026, 3, 10, 23, 59, 50}, ""},
      {{2026, 3, 11, 0, 0, 0}, "T"},
      {{2026, 3, 11, 0, 0, 59}, "T"},  // two ticks in one minute
      {{2026, 3, 11, 7, 5, 1}, "TL"},
      {{2026, 3, 11, 7, 6, 0}, ""},
      {{2026, 4, 11, 7, 5, 0}, ""},    // the day number alone is the same
      {{2026, 3, 11, 7, 5, 0}, "TL"},  // set back
      {{2026, 3, 9, 0, 0, 0}, ""},     // before the first date
      {{2026, 3, 12, 9, 0, 0}, "CT"},
      {{2026, 3, 13, 9, 0, 59}, "T"}};  // the minute ends in the first
  for (const auto& [now, command] : ticks)
    EXPECT_EQ(Tick(now), command) << now.day << ' ' << now.hour << ':' << now.minute;
  // What is saved today counts today, without a change of the date.
  ScheduleForm form{.time = "12:01"};
  EXPECT_EQ(Tick({2026, 3, 12, 12, 0, 30}), "");
  EXPECT_EQ(SaveNewEntry(form, {2026, 3, 12}), "");
  EXPECT_EQ(Tick({2026, 3, 12, 12, 1, 20}), "T");
  form.time = "12:02";
  EXPECT_EQ(SaveEditedEntry(7, form, {2026, 3, 12}), "");
  EXPECT_EQ(Tick({2026, 3, 12, 12, 2, 20}), "T");
}

TEST_F(ScheduleTest, MarksLeaveHoles) {
  Add("T", "Day");                  // 1
  Add("L", "Null");                 // 2
  Add("D1", "Null");                // 3
  Add("D2", "W2");                  // 4, a Tuesday as 2026/3/10
  Add("D1", "M11", "2026/4/11");    // 5, not yet in March
  Add("D77", "Null", "2026/3/11");  // 6, takes out nothing
  Add("C", "W5", "2026/3/17");      // 7, on a Tuesday against its code
  EXPECT_EQ(Shown(2026, 3, 10), (Numbers{kHole, kHole, 3, 4}));
  EXPECT_EQ(ShownEntries.entries[0].event + ShownEntries.entries[0].time, "");
  EXPECT_EQ(Tick({2026, 3, 10, 12, 0, 0}), "");  // only marks are left
  EXPECT_EQ(Shown(2026, 3, 11), (Numbers{1, 6}));
  EXPECT_EQ(Shown(2026, 4, 11), (Numbers{kHole, 5}));
  EXPECT_EQ(Shown(2026, 3, 17), (Numbers{1, 4, 7}));
}

TEST_F(ScheduleTest, MoreThanAHundredEntriesEndTheListWithoutItsMarks) {
  for (int number = 1; number <= 101; ++number) Add(number == 1 ? "D5" : "T");
  EXPECT_EQ(Shown(2026, 3, 9), Numbers{});  // none of them has begun
  ReNewRunTodayEvent(2026, 3, 10);
  EXPECT_EQ(DataCenter.DebugLines[0], "");
  EXPECT_EQ(Shown(2026, 3, 10).size(), 100U);
  EXPECT_EQ(DataCenter.DebugLines[0],
            "2026/03/10 12:00:00  Load todayschedule error! more then 100 event!");
  EXPECT_EQ(RunEntries.count, 101);
  EXPECT_EQ(ShownEntries.entries[4].number, 5);
  MonthTable table;
  EXPECT_FALSE(LoadMonthTable(2026, 3, 100, table));
  EXPECT_EQ(table.days[9].size(), 100U);
  EXPECT_TRUE(LoadMonthTable(2026, 3, 101, table));
  EXPECT_EQ(table.days[30][4].number, kHole);
  delschdeule(101);
  EXPECT_EQ(Shown(2026, 3, 10)[4], kHole);  // exactly a hundred
}

TEST_F(ScheduleTest, MonthTablesAndLoaderAgreeWithTheCalendar) {
  Texts codes{"Null", "Day"};
  for (int weekday = 0; weekday <= 6; ++weekday) codes.push_back("W" + std::to_string(weekday));
  for (int day = 1; day <= 31; ++day) codes.push_back("M" + std::to_string(day));
  for (const std::string& code : codes) Add("T", code, "2023/12/15");
  const chr::sys_days start = chr::year(2023) / 12 / 15, end = chr::year(2025) / 3 / 2;
  MonthTable table;
  for (chr::sys_days date = chr::year(2023) / 11 / 1; date < end; date += chr::days(1)) {
    const chr::year_month_day ymd(date);
    const auto month = static_cast<int>(static_cast<unsigned>(ymd.month()));
    const auto day = static_cast<unsigned>(ymd.day());
    const std::string weekly = "W" + std::to_string(chr::weekday(date).c_encoding());
    const std::string monthly = "M" + std::to_string(day);
    Numbers expected;
    for (size_t i = 0; i < codes.size(); ++i) {
      const bool recurs = codes[i] == "Day" || codes[i] == weekly || codes[i] == monthly;
      if (date == start || (date > start && recurs)) expected.push_back(static_cast<int>(i) + 1);
    }
    if (day == 1) LoadMonthTable(int{ymd.year()}, month, 100, table);
    EXPECT_EQ(NumbersOf(table.days[day - 1]), expected) << month << '/' << day;
    EXPECT_EQ(Shown(int{ymd.year()}, month, static_cast<int>(day)), expected);
  }
}

TEST_F(ScheduleTest, ARestartIsTakenWithinItsLimits) {
  enum Taken { Never, EditedOnly, Always };
  const std::tuple<ScheduleForm, Taken, std::string> cases[] = {
      {{"23:00", 4, 1, 1, "01:00"}, Always, " 23:00 R0119 Day 101:00"},
      {{"12:00", 6, 0, 0, "12:00"}, Never, ""},
      {{"12:00", 6, 0, 0, "12:01"}, EditedOnly, " 12:00 B0000 Null 012:01"},
      {{"12:00", 6, 2, 0, "12:02"}, Always, " 12:00 B0001 W2 012:02"},
      {{"00:00", 4, 3, 6, "22:40"}, Always, " 00:00 R9999 M31 622:40"},
      {{"00:00", 4, 0, 6, "22:41"}, Never, ""}};
  for (const auto& [form, taken, row] : cases) {
    test::InstallDatabases(Folder());
    addschdeule("2026/3/1", "01:00", "R0001", "Day", "3note");
    Texts table = Table();
    EXPECT_EQ(SaveNewEntry(form, {2026, 3, 31}), taken == Always ? "" : LangText[263]);
    if (taken == Always) table.push_back("2 2026-03-31" + row);
    EXPECT_EQ(Table(), table);
    EXPECT_EQ(SaveEditedEntry(1, form, {2026, 3, 31}), taken == Never ? "時間設定錯誤" : "");
    if (taken != Never) table[0] = "1 2026-03-31" + row;
    EXPECT_EQ(Table(), table);
  }
  // Without a restart no limit holds; a new row has no note, an edited one keeps its own.
  const ScheduleForm plain{"23:00", 5, 0, 0, "01:00"};
  EXPECT_EQ(SaveNewEntry(plain, {2026, 3, 31}) + SaveEditedEntry(1, plain, {2026, 3, 31}), "");
  EXPECT_EQ(Table(), (Texts{"1 2026-03-31 23:00 A Null 3note", "2 2026-03-31 23:00 A Null "}));
}

TEST_F(ScheduleTest, AnEntryIsOpenedAsItWasSavedAndSavedUnchangedStaysAsItIs) {
  const std::tuple<const char*, std::string, const char*> cases[] = {
      {"R0119", "101:00", "101:00"},  // less than a day, on the next one
      {"R0120", "101:00", "101:00"},  // from the web console
      {"B-0006", "022:54", "022:54"}, {"R9999", "605:39", "605:39"},
      {"R0059", "", "100:00"},  // the delay alone
      {"R1439", "", "123:00"}};
  for (const auto& [event, note, restart] : cases) {
    DataCenter.settings.UPSShutdownBuffer = 1;
    test::InstallDatabases(Folder());
    addschdeule("2026/3/10", "23:00", event, "W2", note);
    const Texts table = Table();
    ScheduleForm form{.restartDays = 3, .restartTime = "04:44"};
    EXPECT_TRUE(OpenEntry(1, form));
    EXPECT_EQ(std::to_string(form.restartDays) + form.restartTime, restart);
    if (!note.empty()) DataCenter.settings.UPSShutdownBuffer = 7;
    EXPECT_EQ(SaveEditedEntry(1, form, {2026, 3, 10}), "");
    EXPECT_EQ(Table(), table);
  }
}

TEST_F(ScheduleTest, DeletingAsksForWhatRepeatsAndTakesTheMarksWithIt) {
  Add("T", "Day");
  Add("T", "Null");
  Add("D1", "W2");
  Add("D1", "Null");
  Add("L", "M10");
  using enum Deletion;
  int number = 0;
  for (Deletion result : {Ask, Deleted, Deleted, Deleted, Ask, None})
    EXPECT_EQ(DeleteEntry(++number), result) << number;
  for (char choice : {'N', 'W', 'M'}) DeleteByChoice(choice, 1, {2026, 3, 12}, "09:00");
  EXPECT_EQ(Table(), (Texts{"1 2026-03-10 12:00 T Day ", "5 2026-03-10 12:00 L M10 ",
                            "6 2026-03-12 09:00 D1 Null ", "7 2026-03-12 09:00 D1 W4 ",
                            "8 2026-03-12 09:00 D1 M12 "}));
  DeleteByChoice('A', 1, {2026, 3, 12}, "09:00");
  EXPECT_EQ(Table(), Texts{"5 2026-03-10 12:00 L M10 "});
  EXPECT_EQ(NumbersOf(RunEntries.entries), Numbers{5});
  delschdeule(5);
  Add("S");  // the number is free again
  EXPECT_EQ(Table(), Texts{"1 2026-03-10 12:00 S Day "});
}

TEST_F(ScheduleTest, WhatCannotBeReadLeavesAnEmptyList) {
  Add("T");
  ReloadRunList();
  EXPECT_EQ(RunEntries.count, 1);
  ReNewRunTodayEvent(2026, 13, 1);
  EXPECT_EQ(RunEntries.count, 0);
  MonthTable table;
  EXPECT_THROW(LoadMonthTable(2026, 0, 100, table), platform::RuntimeError);
  EXPECT_THROW(RecurrenceCode('W', 2026, 13, 1), platform::RuntimeError);
  const std::string file = Folder() + "/database/Event.mdb";
  std::filesystem::rename(file, file + ".away");
  EXPECT_EQ(Tick({2026, 3, 10, 12, 0, 0}), "");
  std::filesystem::rename(file + ".away", file);
  EXPECT_EQ(Tick({2026, 3, 10, 12, 0, 59}), "T") << "as soon as it can be read, on the same day";

  platform::Database database(file);
  const auto rows = database.OpenRecordset(kScheduleTable);
  rows->Edit();
  rows->Set("date", platform::Value());
  rows->Update();
  EXPECT_EQ(Shown(2026, 3, 10), Numbers{}) << "without a date it would run every day";
}

}  // namespace
}  // namespace varek
