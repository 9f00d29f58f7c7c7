// The schedule runner: once a minute it starts the entries whose time has come.
#pragma once

namespace varek {

/// The tick of the minute timer.
void RunSchedule();

}  // namespace varek
