// The schedule runner: once a minute it starts the entries whose time has come. It keeps no record
// of what has run, so that two ticks in one minute run an entry twice, and a minute without a tick
// is not caught up.
#pragma once

namespace varek {

/// The date for which the run list was loaded; all 0 before the first tick.
struct RunDate {
  int year = 0;
  int month = 0;
  int day = 0;

  friend bool operator==(const RunDate&, const RunDate&) = default;
};

/// Defined here, so that whoever starts afresh needs no more of this module.
inline RunDate LoadedRunDate;

/// The tick of the minute timer. A start of the unit's shutdown lets other handlers run for about
/// two seconds.
void RunSchedule();

}  // namespace varek
