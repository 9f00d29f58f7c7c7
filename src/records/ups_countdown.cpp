#include "records/ups_countdown.h"

#include "core/data_center.h"
#include "core/link_record.h"
#include "platform/clock.h"
#include "platform/events.h"
#include "platform/text.h"
#include "records/events.h"
#include "records/shutdown.h"

namespace varek {

namespace {
constexpr int kTick = 100;
constexpr int32_t kNothingCounted = 99999;
constexpr int kPumpMilliseconds = 10;
constexpr size_t kCaptionText = 214;
}  // namespace

FormSlot<Form11>& UPSCountdown() {
  static FormSlot<Form11> slot(Form11::kNumber);
  return slot;
}

Form11::Form11()
    : window_(CountdownWindow::Place::BelowMiddle, [] { CancelUPSShutdown(); }),
      Timer1(
          "form11 Timer1", [this] { Timer1_Timer(); }, kTick) {
  Timer1.SetEnabled(false);  // It counts only once a start time is known.
  ApplyLanguage();
  DataCenter.FormOpen[kNumber] = kSet;
}

Form11::~Form11() { DataCenter.FormOpen[kNumber] = kClear; }

void Form11::ApplyLanguage() { window_.ApplyLanguage(kCaptionText); }

void SetUPSShuntDown(int minutes, int restartMinutes) {
  static int32_t requests = 0;
  if (!UPSCountdown().Get().Begin(minutes)) return;
  const int32_t request = ++requests;
  UPSCountdown().Get().request_ = request;
  // The window, and the count in it, can be another one after each wait.
  const auto isCurrent = [request] {
    return UPSCountdown().IsLoaded() && UPSCountdown().Get().request_ == request;
  };
  Link.PendingCommand = "C";
  Delay(1);
  if (!isCurrent()) return;
  UPSCountdown().Get().Arm(minutes, restartMinutes);
  Delay(1);
  if (!isCurrent()) return;
  UPSCountdown().Get().StartCount(minutes);
}

bool Form11::Begin(int minutes) {
  CountSeconds = kNothingCounted;
  window_.Show();
  if (minutes * 60 >= CountSeconds) return false;
  // The former count must neither end nor send its command while the new one is prepared.
  Timer1.SetEnabled(false);
  CommandWaiting = false;
  return true;
}

void Form11::Arm(int minutes, int restartMinutes) {
  UpsCommand = "S" + platform::ZeroPadded(minutes, 2);
  if (restartMinutes != kNoRestart) UpsCommand += "R" + platform::ZeroPadded(restartMinutes, 4);
  CommandWaiting = true;
}

void Form11::StartCount(int minutes) {
  CountSeconds = minutes * 60;
  TotalMs = int64_t{CountSeconds} * 1000;
  StartTicks = platform::TickCount();
  Timer1.SetEnabled(true);
}

void Form11::Timer1_Timer() {
  OfferCommand();
  const int64_t elapsed = platform::TickCount() - StartTicks;
  if (elapsed <= TotalMs) return ShowRemaining(TotalMs - elapsed);
  Timer1.SetEnabled(false);
  DataCenter.FormOpen[kNumber] = kClear;
  EventUPSShutdown();
  UPSCountdown().Unload();
}

/// The command is held here until the slot is free: it must not overwrite one that still waits.
void Form11::OfferCommand() {
  if (!CommandWaiting || !Link.PendingCommand.empty()) return;
  Link.PendingCommand = UpsCommand;
  CommandWaiting = false;
}

void Form11::ShowRemaining(int64_t milliseconds) {
  const int64_t seconds = milliseconds / 1000;
  window_.SetLabel(platform::ZeroPadded(seconds / 60 % 60, 2) + ":" +
                   platform::ZeroPadded(seconds % 60, 2));
}

void CancelUPSShutdown() {
  Link.PendingCommand = "C";
  UPSCountdown().Unload();
}

void Delay(int seconds) {
  const int64_t end = platform::TickCount() + int64_t{seconds} * 1000;
  while (platform::TickCount() <= end) platform::WaitForEvents(kPumpMilliseconds);
}

}  // namespace varek
