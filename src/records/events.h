// The twelve events. Each leaves a row in `allevent`, a line in the dashboard's list and, where
// that is switched on, a pop-up, a mail and a text message; two start the shutdown countdowns and
// one cancels them. Seven come from comparing the live flags with latches once a second, five from
// the code that owns their moment.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace varek {

/// The once-a-second evaluation: status code and tray first, then every flag against its latch.
/// An error of event 6 propagates.
void CheckUPSEvents();

// Each of these writes a row at every call. A row that can't be written is lost and the rest goes
// on, but for EventLinkLost, whose errors propagate.
void EventProgramStart();
void EventProgramEnd();
void EventLinkUp();
/// Also clears the live values, even when its row can't be written.
void EventLinkLost();
void EventSystemShutdown();
void EventUPSShutdown();

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

/// Puts the present date and time, two blanks and `text` on top of DebugLines.
void AddEventLine(const std::string& text);

/// Called after DebugLines has changed while the dashboard is open; the dashboard sets it.
void OnDebugLinesChanged(std::function<void()> refresh);

}  // namespace varek
