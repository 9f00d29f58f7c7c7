// The schedule runner: once a minute it starts the entries whose time has come. It keeps no record
// of what has run, so that two ticks in one minute run an entry twice, and a minute without a tick
// is not caught up.
#pragma once

namespace varek {

/// The tick of the minute timer. A start of the unit's shutdown lets other handlers run for about
/// two seconds.
void RunSchedule();

}  // namespace varek
