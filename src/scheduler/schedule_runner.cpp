#include "scheduler/schedule_runner.h"

#include <string>
#include <vector>

#include "core/data_center.h"
#include "core/link_record.h"
#include "core/unit_commands.h"
#include "platform/storage/query_dialect.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "records/shutdown/shutdown.h"
#include "scheduler/schedule_model.h"

namespace varek {

namespace {

constexpr size_t kSecondsPart = 3;  ///< ":00"

void ShutDownUPS(int restart) { StartUPSShutdown(DataCenter.settings.UPSShutdownBuffer, restart); }

void ShutDownSystem() { StartSystemShutdown(DataCenter.settings.SystemShutdownBuffer); }

/// A mark, or an unknown code, does nothing.
void Start(const std::string& event) {
  switch (event[0]) {
    case 'T':
      Link.PendingCommand = commands::kShortTest;
      return;
    case 'L':
      Link.PendingCommand = commands::kTestUntilLow;
      return;
    case 'C':
      Link.PendingCommand = commands::kStopTest;
      return;
    case 'S':
      return ShutDownUPS(kUntimedRestart);
    case 'R':
      return ShutDownUPS(RestartMinutes(event));
    case 'M':
      return ShutDownSystem();
    case 'A':
      ShutDownSystem();
      return ShutDownUPS(kUntimedRestart);
    case 'B':  // The other way round than A: the unit is told before the system's count begins.
      ShutDownUPS(RestartMinutes(event));
      return ShutDownSystem();
  }
}

/// "hh:mm" of a time in any padding; empty for what is no time.
std::string MinuteText(const std::string& time) {
  const auto sortable = platform::SortableDate(time);
  return sortable ? sortable->substr(0, sortable->size() - kSecondsPart) : std::string();
}

/// Comparing the whole date, and not for "the next day", also follows a clock that was set.
void FollowDate(const platform::DateTime& now) {
  const RunDate today{now.year, now.month, now.day};
  if (today == LoadedRunDate) return;
  LoadedRunDate = today;
  ReNewRunTodayEvent(today.year, today.month, today.day);
}

/// The codes due in this minute, in the order of the list.
std::vector<std::string> DueEvents(const platform::DateTime& now) {
  const std::string minute = platform::FormatTime(now).substr(0, 5);
  std::vector<std::string> due;
  for (const ScheduleEntry& entry : RunEntries.entries) {
    if (!entry.event.empty() && MinuteText(entry.time) == minute) due.push_back(entry.event);
  }
  return due;
}

}  // namespace

void RunSchedule() {
  const platform::DateTime now = platform::Now();
  FollowDate(now);
  // Picked out first: starting one lets other handlers run, which may reload the list, and the
  // next minute may come.
  for (const std::string& event : DueEvents(now)) Start(event);
}

}  // namespace varek
