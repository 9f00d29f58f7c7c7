// The countdown to the shutdown of the operating system.
#pragma once

#include <cstdint>
#include <string>

#include "core/data_center.h"
#include "core/forms.h"
#include "platform/time/timers.h"
#include "records/shutdown/countdown_view.h"
#include "records/shutdown/ups_countdown.h"

namespace varek {

class Form10 final {
 public:
  static constexpr int kNumber = 10;

  Form10();

  /// Begins the countdown, or shortens a running one; a longer time changes nothing.
  void SysShuntDown(int minutes);

  /// One second of the countdown. At its end: event 5, event 9 if the unit's count is running, and
  /// the system shutdown, which lets the UPS be told first.
  void Timer1_Timer();

  void ApplyLanguage();

  int16_t Seconds() const { return CountDown; }

 private:
  void ShutDownNow();
  void ShowTime();
  void StartAutosave();

  int16_t CountDown = 9999;  ///< seconds left; the start value stands for no time given yet
  std::string TimeText;
  Flag AutoSaveStarted = kClear;
  std::unique_ptr<CountdownView> view_;
  AfterUPSOrder systemShutdown_;
  platform::Timer Timer1;
};

/// The one instance.
FormSlot<Form10>& SystemCountdown();

}  // namespace varek
