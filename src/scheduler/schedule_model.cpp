#include "scheduler/schedule_model.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "core/debug_lines.h"
#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/storage/query_dialect.h"
#include "platform/text/text.h"
#include "platform/time/calendar.h"
#include "platform/time/clock.h"
#include "scheduler/schedule_rows.h"

namespace varek {

DayEntries ShownEntries;
DayEntries RunEntries;

namespace {

constexpr int kMostOfDate = 100;
constexpr size_t kDateLength = 10;
constexpr char kDaily[] = "Day";

/// A date as rows tell it. Stored dates are sortable: the order of the texts is that of the dates.
struct ScheduleDay {
  std::string stored;   ///< "2026-03-05"
  std::string weekly;   ///< "W4"
  std::string monthly;  ///< "M5"
};

/// Front ends pass on what people typed, so a date that does not exist ends here.
std::string StoredDate(int year, int month, int day) {
  const auto stored = platform::SortableDate(ScheduleDate(year, month, day));
  if (!stored) throw platform::RuntimeError(platform::errors::kDataConversion, "no such date");
  return *stored;
}

int Weekday(int year, int month, int day) {
  StoredDate(year, month, day);
  return (platform::Getfirstday(year, month).weekday + day - 1) % 7;
}

ScheduleDay DayOf(int year, int month, int day) {
  return {StoredDate(year, month, day), RecurrenceCode('W', year, month, day),
          RecurrenceCode('M', year, month, day)};
}

std::string_view StartDate(const ScheduleEntry& entry) {
  return std::string_view(entry.date).substr(0, kDateLength);
}

/// A row belongs to its own date whatever its recurrence, and to those behind it that recur.
bool FallsOn(const ScheduleEntry& entry, const ScheduleDay& day) {
  if (StartDate(entry) == day.stored) return true;
  if (StartDate(entry) > day.stored) return false;
  return entry.rept == kDaily || entry.rept == day.weekly || entry.rept == day.monthly;
}

/// The blanks in the two queries are part of them.
std::string DateQuery(int year, int month, int day) {
  const ScheduleDay codes = DayOf(year, month, day);
  return "Select *  From [schedule] Where  [date] = #" + ScheduleDate(year, month, day) +
         "# Or [rept] In ('Day','" + codes.weekly + "' ,'" + codes.monthly + "')";
}

std::string MonthQuery(int year, int month) {
  const std::string end = month == 12 ? std::to_string(year + 1) + "/01"
                                      : std::to_string(year) + "/" + std::to_string(month + 1);
  std::string codes = "'Day'";
  for (int weekday = 0; weekday <= 6; ++weekday) codes += ",'W" + std::to_string(weekday) + "'";
  for (int day = 1; day <= 31; ++day) codes += ",'M" + std::to_string(day) + "'";
  return "Select *  From [schedule] Where  [date] >= #" + std::to_string(year) + "/" +
         std::to_string(month) + "/01# AND  [date] < #" + end + "/01# Or [rept] In (" + codes +
         " )";
}

/// Each mark takes the first entry of its number out. The entry stays in its place as a hole.
void StrikeOutMarked(std::vector<ScheduleEntry>& entries) {
  for (const ScheduleEntry& mark : entries) {
    if (!IsMark(mark)) continue;
    const double number = platform::LenientNumber(mark.event.substr(1));
    const auto marked = std::find_if(entries.begin(), entries.end(),
                                     [=](const auto& entry) { return entry.number == number; });
    if (marked == entries.end()) continue;
    *marked = ScheduleEntry();
    marked->number = kHole;
  }
}

/// Nothing for a row that can't be read, or that has no date: it would run every day.
std::optional<ScheduleEntry> ReadableRow(ScheduleRows& rows) {
  std::optional<ScheduleEntry> entry;
  platform::IgnoreErrors([&] { entry = rows.Current(); });
  if (entry && entry->date.size() < kDateLength) return std::nullopt;
  return entry;
}

enum class Loading { Complete, TooMany, Failed };

/// Of a date with more entries than a set takes the marks are not applied.
Loading ReadDate(int year, int month, int day, DayEntries& set) {
  const std::string date = StoredDate(year, month, day);
  for (ScheduleRows rows(DateQuery(year, month, day)); !rows.Eof(); rows.MoveNext()) {
    std::optional<ScheduleEntry> entry = ReadableRow(rows);
    if (!entry || StartDate(*entry) > date) continue;
    if (++set.count > kMostOfDate) return Loading::TooMany;
    set.entries.push_back(std::move(*entry));
  }
  StrikeOutMarked(set.entries);
  return Loading::Complete;
}

/// ReadDate with errors ignored: what can't be read leaves the set without it.
Loading LoadDate(int year, int month, int day, DayEntries& set) {
  set = DayEntries();
  Loading result = Loading::Failed;
  platform::IgnoreErrors([&] { result = ReadDate(year, month, day, set); });
  return result;
}

std::vector<ScheduleDay> DaysOf(int year, int month) {
  std::vector<ScheduleDay> days;
  const int count = platform::Getfirstday(year, month).days;
  for (int day = 1; day <= count; ++day) days.push_back(DayOf(year, month, day));
  return days;
}

/// Adds the entry to each of its days; false when one of them is full.
bool Place(const ScheduleEntry& entry, const std::vector<ScheduleDay>& days, size_t limit,
           MonthTable& table) {
  for (size_t i = 0; i < days.size(); ++i) {
    if (!FallsOn(entry, days[i])) continue;
    if (table.days[i].size() >= limit) return false;
    table.days[i].push_back(entry);
  }
  return true;
}

}  // namespace

bool LoadMonthTable(int year, int month, size_t limit, MonthTable& table) {
  table = {.year = year, .month = month, .days = {}};
  ScheduleRows rows(MonthQuery(year, month));
  const std::vector<ScheduleDay> days = DaysOf(year, month);
  for (; !rows.Eof(); rows.MoveNext()) {
    const auto entry = ReadableRow(rows);
    if (!entry) {
      AddEventLine("DATA EVENT ERROR");
    } else if (!Place(*entry, days, limit, table)) {
      return false;
    }
  }
  for (auto& entries : table.days) StrikeOutMarked(entries);
  return true;
}

void addschdeule(const std::string& date, const std::string& time, const std::string& event,
                 const std::string& rept, const std::string& note) {
  ScheduleRows rows;
  rows.Append({.number = rows.LastNumber() + 1,
               .note = note,
               .rept = rept,
               .time = time,
               .event = event,
               .date = date});
}

void delschdeule(int number) {
  ScheduleRows rows;
  if (rows.Find(number)) rows.DeleteWithMarks(number);
}

std::string ScheduleDate(int year, int month, int day) {
  return std::to_string(year) + "/" + std::to_string(month) + "/" + std::to_string(day);
}

std::string RecurrenceCode(char letter, int year, int month, int day) {
  switch (letter) {
    case 'D':
      return kDaily;
    case 'W':
      return "W" + std::to_string(Weekday(year, month, day));
    case 'M':
      return "M" + std::to_string(day);
    default:
      return "Null";
  }
}

bool IsMark(const ScheduleEntry& entry) { return entry.event.starts_with('D'); }

int RestartMinutes(const std::string& event) {
  const size_t start = event.size() - std::min<size_t>(event.size(), 4);
  return static_cast<int>(platform::LenientNumber(event.substr(start)));
}

void ReNewTodayEvent(int year, int month, int day) {
  if (LoadDate(year, month, day, ShownEntries) != Loading::TooMany) return;
  AddEventLine("Load todayschedule error! more then 100 event!");
}

/// A schedule that can't be read now must not cost the day: the next tick tries again.
void ReNewRunTodayEvent(int year, int month, int day) {
  if (LoadDate(year, month, day, RunEntries) == Loading::Failed) LoadedRunDate = {};
}

void ReloadRunList() {
  const platform::DateTime now = platform::Now();
  ReNewRunTodayEvent(now.year, now.month, now.day);
}

}  // namespace varek
