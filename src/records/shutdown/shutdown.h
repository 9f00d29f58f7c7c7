// The entries to the two shutdown countdowns that every other module calls. The countdowns run side
// by side: one ends in the shutdown of the operating system, the other mirrors the count after
// which the unit cuts its output.
#pragma once

namespace varek {

/// Starts the countdown to the shutdown of the operating system, or shortens a running one.
void StartSystemShutdown(int minutes);

/// Starts the unit's shutdown after `minutes`, with a restart after `restart` minutes or
/// kNoRestart; a running count begins anew. Does nothing while there is no output voltage. Takes
/// about two seconds, in which other handlers run.
void StartUPSShutdown(int minutes, int restart);

/// Ends both countdowns on a person's demand; the unit is told while its output is alive.
void CancelShutdowns();

/// Ends both countdowns because their reason has gone; the unit is told in any case.
void CancelCountdowns();

}  // namespace varek
