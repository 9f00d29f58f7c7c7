#include "records/shutdown/ups_countdown.h"

#include <utility>

#include "core/data_center.h"
#include "core/link_record.h"
#include "core/unit_commands.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "records/notices/event_record.h"
#include "texts/text_numbers.h"

namespace varek {

namespace {
constexpr int kTick = 100;
constexpr int32_t kNothingCounted = 99999;
constexpr int kPumpMilliseconds = 10;
constexpr int kOrderTick = 100;
/// Two full turns of the poll cycle, for "C" and for "S", and a reserve.
constexpr int64_t kOrderPatience = 5000;

/// Calls of SetUPSShuntDown that are on the stack.
int preparations = 0;

struct Preparation {
  Preparation() { ++preparations; }
  ~Preparation() { --preparations; }
  Preparation(const Preparation&) = delete;
  Preparation& operator=(const Preparation&) = delete;
};

bool CommandIsUnsent() {
  const bool held = UPSCountdown().IsLoaded() && UPSCountdown().Get().IsCommandWaiting();
  return held || IsShutdownCommand(Link.PendingCommand);
}

/// A preparation ends by itself, and behind it come the row and the messages of the event that
/// began it; a command that waits for a link may wait forever.
bool OrderIsUnderWay() { return preparations > 0 || (DataCenter.IsConnect && CommandIsUnsent()); }

}  // namespace

FormSlot<Form11>& UPSCountdown() {
  static FormSlot<Form11> slot(Form11::kNumber);
  return slot;
}

Form11::Form11()
    : view_(MakeCountdownView(CountdownPlace::Right, [] { CancelUPSShutdown(); })),
      Timer1(
          "form11 Timer1", [this] { Timer1_Timer(); }, kTick) {
  Timer1.SetEnabled(false);  // It counts only once a start time is known.
  ApplyLanguage();
}

void Form11::ApplyLanguage() { view_->ApplyLanguage(texts::kUpsCountdownCaption); }

void SetUPSShuntDown(int minutes, int restartMinutes) {
  static int32_t requests = 0;
  const Preparation preparation;
  if (!UPSCountdown().Get().Begin(minutes)) return;
  const int32_t request = ++requests;
  UPSCountdown().Get().request_ = request;
  // The window, and the count in it, can be another one after each wait.
  const auto isCurrent = [request] {
    return UPSCountdown().IsLoaded() && UPSCountdown().Get().request_ == request;
  };
  Link.PendingCommand = commands::kStopShutdown;
  Delay(1);
  if (!isCurrent()) return;
  UPSCountdown().Get().Arm(minutes, restartMinutes);
  Delay(1);
  if (!isCurrent()) return;
  UPSCountdown().Get().StartCount(minutes);
}

bool Form11::Begin(int minutes) {
  CountSeconds = kNothingCounted;
  view_->Show();
  if (minutes * 60 >= CountSeconds) return false;
  // The former count must neither end nor send its command while the new one is prepared.
  Timer1.SetEnabled(false);
  CommandWaiting = false;
  return true;
}

void Form11::Arm(int minutes, int restartMinutes) {
  UpsCommand = ShutdownCommand(minutes, restartMinutes);
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
  // A count of no minutes can end before the "C" in front of its command has left.
  if (CommandWaiting && DataCenter.IsConnect) return ShowRemaining(0);
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
  view_->SetTime(platform::ZeroPadded(seconds / 60 % 60, 2) + ":" +
                 platform::ZeroPadded(seconds % 60, 2));
}

void CancelUPSShutdown() {
  Link.PendingCommand = commands::kStopShutdown;
  UPSCountdown().Unload();
}

void Delay(int seconds) {
  const int64_t end = platform::TickCount() + int64_t{seconds} * 1000;
  while (platform::TickCount() <= end) platform::WaitForEvents(kPumpMilliseconds);
}

AfterUPSOrder::AfterUPSOrder(std::string place, std::function<void()> action)
    : action_(std::move(action)), timer_(std::move(place), [this] { Look(); }) {}

void AfterUPSOrder::Begin() {
  if (timer_.Interval() != 0) return;
  deadline_ = platform::TickCount() + kOrderPatience;
  Look();
}

void AfterUPSOrder::Look() {
  const bool waits = OrderIsUnderWay() && platform::TickCount() < deadline_;
  timer_.SetInterval(waits ? kOrderTick : 0);
  if (waits) return;
  const auto action = action_;
  action();
}

}  // namespace varek
