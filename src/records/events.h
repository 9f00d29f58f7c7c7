// The twelve events. Each leaves a row in `allevent`, a line in the dashboard's list and, where
// that is switched on, a pop-up, a mail and a text message; two start the shutdown countdowns and
// one cancels them. Seven come from comparing the live flags with latches once a second, five from
// the code that owns their moment.
#pragma once

namespace varek {

/// The once-a-second evaluation: status code and tray first, then every flag against its latch.
/// An error of event 6 propagates.
void CheckUPSEvents();

// Each of these does nothing when its latch says that the event has been raised.
/// Starts the countdowns that are enabled. Its errors propagate, after the latch has been set.
void EventPowerFail();
void EventBatteryLow();
/// Cancels both countdowns.
void EventPowerBack();
/// The end of battery low, no event of its own: with the mains on it cancels both countdowns.
void ClearBatteryLow();
void EventOverload();
void EventUPSFail();
void EventTestStart();

}  // namespace varek
