// The schedule: a list of timed actions of the UPS in the table `schedule` of Event.mdb, what its
// rows mean, how they are made, changed and removed, and which of them belong to a date. The
// calendar window and the web console are two front ends on it; the runner carries it out.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "scheduler/schedule_entry.h"

namespace varek {

/// The entries of one date, in the order of the query, holes included. `count` is what the loader
/// counted: 101 when there were more than 100, of which the first 100 stand here.
struct DayEntries {
  std::vector<ScheduleEntry> entries;
  int count = 0;
};

/// The days of one month, index 0 for the first. A day has the same entries here as in DayEntries.
struct MonthTable {
  int year = 0;
  int month = 0;
  std::array<std::vector<ScheduleEntry>, 31> days;
};

/// Fills the table of a month, cancel marks applied. False when a day has more than `limit`
/// entries: the rebuilding ends there and the days filled so far stand.
bool LoadMonthTable(int year, int month, size_t limit, MonthTable& table);

/// Appends a row. Throws RuntimeError when the table can't be written.
void addschdeule(const std::string& date, const std::string& time, const std::string& event,
                 const std::string& rept, const std::string& note);

/// Deletes entry `number` and every mark that cancels it; nothing when there is none.
void delschdeule(int number);

/// "year/month/day" without leading zeros.
std::string ScheduleDate(int year, int month, int day);
/// "Null", "Day", "W" and the weekday of the date, "M" and its day, by the letters N, D, W, M.
std::string RecurrenceCode(char letter, int year, int month, int day);

/// True for a row that takes another entry out.
bool IsMark(const ScheduleEntry& entry);
/// Minutes until the restart in the code of an R or B: its last four characters.
int RestartMinutes(const std::string& event);

/// The action's name; for a mark the number of the entry that it takes out and what that means.
/// Empty for an unknown code.
std::string EventCodeText(const std::string& code);
/// The time of the restart and its day in words; empty for an empty note.
std::string NoteText(const std::string& note);
/// The recurrence in words; empty for an unknown code.
std::string ReptText(const std::string& rept);

/// The set of the date shown in the calendar, and today's run list.
extern DayEntries ShownEntries;
extern DayEntries RunEntries;

/// The date for which the run list was loaded; all 0 before the first tick.
struct RunDate {
  int year = 0;
  int month = 0;
  int day = 0;

  friend bool operator==(const RunDate&, const RunDate&) = default;
};

inline RunDate LoadedRunDate;

/// Load the two sets. Errors are ignored; a date with more than 100 entries leaves a debug line for
/// the shown set.
void ReNewTodayEvent(int year, int month, int day);
void ReNewRunTodayEvent(int year, int month, int day);
/// ReNewRunTodayEvent for the present date: what every change of the table ends with.
void ReloadRunList();

}  // namespace varek
