// What an event leaves behind: a row in `allevent`, a line in the newest messages and, where that
// is switched on, a pop-up, a mail and a text message. The events without further consequences
// stand here too.
#pragma once

namespace varek {

/// The event numbers; do not change, the table `allevent` holds them.
enum EventType : int {
  kProgramStart = 1,
  kProgramEnd,
  kLinkUp,
  kLinkLost,
  kSystemShutdown,
  kPowerFail,
  kBatteryLow,
  kPowerBack,
  kUPSShutdown,
  kOverload,
  kUPSFail,
  kTestStart,
};

/// What most events do. Each step runs, whatever became of the one before.
void RecordEvent(EventType type);

/// RecordEvent behind the pop-up.
void RecordWithPopup(EventType type);

// The single steps, for the events that stop at the first that fails.
/// The row and the line; throws RuntimeError.
void WriteRow(EventType type);
/// Throws RuntimeError 53 when the program that shows it is missing.
void ShowPopup(EventType type);
/// Mail and text message; throws as ShowPopup does.
void Notify(EventType type);

// Each of these writes a row at every call. A row that can't be written is lost and the rest goes
// on, but for EventLinkLost, whose errors propagate.
void EventProgramStart();
void EventProgramEnd();
void EventLinkUp();
/// Also clears the live values, even when its row can't be written.
void EventLinkLost();
void EventSystemShutdown();
void EventUPSShutdown();

}  // namespace varek
