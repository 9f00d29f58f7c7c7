// The countdown that mirrors the unit's own: after it the unit cuts its output. The command goes
// out at the start, by way of the poll cycle.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/forms.h"
#include "platform/time/timers.h"
#include "records/shutdown/countdown_view.h"

namespace varek {

class Form11 final {
 public:
  static constexpr int kNumber = 11;

  Form11();

  /// A tenth of a second: offers the command until the slot takes it, then shows the time. At the
  /// end: event 9, and the window goes.
  void Timer1_Timer();

  void ApplyLanguage();
  /// True until the slot has taken the command of this count.
  bool IsCommandWaiting() const { return CommandWaiting; }

 private:
  friend void SetUPSShuntDown(int minutes, int restartMinutes);

  /// False when the request takes no effect: its time is longer than any that is counted.
  bool Begin(int minutes);
  void Arm(int minutes, int restartMinutes);
  void StartCount(int minutes);
  void OfferCommand();
  void ShowRemaining(int64_t milliseconds);

  int64_t StartTicks = 0;    ///< tick count at the start
  int64_t TotalMs = 0;       ///< length of the count
  int32_t CountSeconds = 0;  ///< the same in seconds; 99999 while a call begins
  std::string UpsCommand;
  bool CommandWaiting = false;  ///< UpsCommand has not been placed in PendingCommand yet
  int32_t request_ = 0;         ///< the call that this count belongs to
  std::unique_ptr<CountdownView> view_;
  platform::Timer Timer1;
};

/// The one instance.
FormSlot<Form11>& UPSCountdown();

/// Cancels what the unit is counting, waits a second, prepares "S" with `minutes` and, unless it
/// is -1, "R" with `restartMinutes`, waits another second and starts the count; a running one
/// begins anew. Other handlers run in the two waits: when they cancel the count, or make a newer
/// request, this one ends there.
void SetUPSShuntDown(int minutes, int restartMinutes);

/// The cancel button: "C" for the unit, and the window goes. Sends "C" also with no count running.
void CancelUPSShutdown();

/// Pumps events until `seconds` have passed.
void Delay(int seconds);

/// Something that must not happen before the UPS has been told to switch off: with the machine or
/// the process gone, nobody would tell it any more, and its battery would drain to the end.
class AfterUPSOrder final {
 public:
  /// `action` runs under the name `place` and may destroy this.
  AfterUPSOrder(std::string place, std::function<void()> action);

  /// Runs the action at once, unless a UPS shutdown is being prepared or its "S" has not been sent
  /// yet: then as soon as the poll cycle has sent it or the link is down, at most five seconds
  /// after the first call. A call while it waits changes nothing.
  void Begin();

 private:
  void Look();

  std::function<void()> action_;
  int64_t deadline_ = 0;
  platform::Timer timer_;
};

}  // namespace varek
