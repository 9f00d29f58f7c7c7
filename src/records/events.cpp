#include "records/events.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "core/data_center.h"
#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/time/clock.h"
#include "records/databases.h"
#include "records/notification.h"
#include "records/recording.h"
#include "records/shutdown.h"
#include "texts/language.h"
#include "tray/tray.h"

namespace varek {

namespace {

constexpr int kDashboard = 1;
constexpr float kFullLoad = 100;

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

std::function<void()>& DebugLinesRefresh() {
  static std::function<void()> refresh;
  return refresh;
}

size_t Index(EventType type) { return static_cast<size_t>(type) - 1; }

platform::Recordset& EventRows() {
  if (!Records.allevent) {
    throw platform::RuntimeError(platform::errors::kObjectNotSet, "event table is not open");
  }
  return *Records.allevent;
}

void BeginRow(EventType type) {
  platform::Recordset& rows = EventRows();
  rows.AddNew();
  rows.Set(0, platform::FormatStored(platform::Now()));
  rows.Set(1, int64_t{type});
}

void EndRow() {
  platform::Recordset& rows = EventRows();
  Watch(Recording::WriteEvent, [&] { rows.Update(); });
}

void WriteRow(EventType type) {
  BeginRow(type);
  AddEventLine(EventText[Index(type)]);
  EndRow();
}

void ShowPopup(EventType type) {
  if (DataCenter.settings.EventPopup) StartAlert(EventText[Index(type)]);
}

void SendMail(EventType type) {
  const size_t index = Index(type);
  if (!DataCenter.settings.MailEventEnable[index]) return;
  mailto(DataCenter.settings.MailServer, DataCenter.settings.MailSenderName,
         DataCenter.settings.MailSenderAddress, DataCenter.settings.MailRecipientName,
         DataCenter.settings.MailRecipientAddress, EventText[index],
         DataCenter.settings.MailEventText[index]);
}

void SendSms(EventType type) {
  const size_t index = Index(type);
  if (!DataCenter.settings.SmsEventEnable[index]) return;
  SendMsg(DataCenter.settings.SmsGateway, DataCenter.settings.SmsAccount,
          DataCenter.settings.SmsPassword, DataCenter.settings.SmsNumber,
          DataCenter.settings.SmsEventText[index], DataCenter.settings.SmsApiId, "F");
}

void Notify(EventType type) {
  SendMail(type);
  SendSms(type);
}

/// What most events do: each step runs, whatever became of the one before.
void RecordEvent(EventType type) {
  platform::IgnoreErrors([&] { BeginRow(type); });
  platform::IgnoreErrors([&] { AddEventLine(EventText[Index(type)]); });
  platform::IgnoreErrors([&] { EndRow(); });
  platform::IgnoreErrors([&] { SendMail(type); });
  platform::IgnoreErrors([&] { SendSms(type); });
}

void RecordWithPopup(EventType type) {
  platform::IgnoreErrors([&] { ShowPopup(type); });
  RecordEvent(type);
}

/// One flag against its latch: `raise` while the flag is set, else the latch is released.
void Compare(bool flag, void (*raise)(), Flag& latch) {
  if (flag) {
    raise();
  } else {
    latch = kClear;
  }
}

void FollowStage() {
  DataCenter.UPSStage = GetUPSStage();
  if (DataCenter.UPSStage == DataCenter.UPSStageLast) return;
  DataCenter.UPSStageLast = DataCenter.UPSStage;
  SetStageIcon(DataCenter.UPSStage);
}

/// Does what must be done however the steps of its block end.
class OnExit {
 public:
  explicit OnExit(void (*action)()) : action_(action) {}
  ~OnExit() { action_(); }
  OnExit(const OnExit&) = delete;
  OnExit& operator=(const OnExit&) = delete;

 private:
  void (*action_)();
};

}  // namespace

void CheckUPSEvents() {
  FollowStage();
  DataCenter.flags.Utility ? EventPowerFail() : EventPowerBack();
  DataCenter.flags.BatLow ? EventBatteryLow() : ClearBatteryLow();
  Compare(DataCenter.flags.TestProgress, EventTestStart, DataCenter.latches.TestLatched);
  Compare(DataCenter.flags.UPSFailed, EventUPSFail, DataCenter.latches.UPSFailLatched);
  Compare(GetLoadPercent() > kFullLoad, EventOverload, DataCenter.latches.OverloadLatched);
}

void EventProgramStart() { RecordEvent(kProgramStart); }
void EventProgramEnd() { RecordEvent(kProgramEnd); }
void EventLinkUp() { RecordEvent(kLinkUp); }

void EventLinkLost() {
  {
    // A unit that is gone has no readings, whether or not its going could be recorded.
    const OnExit clear(ClearLiveValues);
    WriteRow(kLinkLost);
  }
  Notify(kLinkLost);
}

void EventSystemShutdown() { RecordEvent(kSystemShutdown); }
void EventUPSShutdown() { RecordEvent(kUPSShutdown); }

void EventPowerFail() {
  if (DataCenter.latches.PowerFailLatched) return;
  {
    // A row or a pop-up that fails must not bring the countdowns back to their beginning at the
    // next tick.
    const OnExit latch([] { DataCenter.latches.PowerFailLatched = kSet; });
    if (DataCenter.settings.PowerFailSystemEnable)
      StartSystemShutdown(DataCenter.settings.PowerFailSystemDelay);
    if (DataCenter.settings.PowerFailUPSEnable)
      StartUPSShutdown(DataCenter.settings.PowerFailUPSDelay, kNoRestart);
    ShowPopup(kPowerFail);
    WriteRow(kPowerFail);
  }
  Notify(kPowerFail);
}

void EventBatteryLow() {
  if (DataCenter.latches.BatLowLatched) return;
  platform::IgnoreErrors([] {
    if (DataCenter.settings.BatLowSystemEnable)
      StartSystemShutdown(DataCenter.settings.BatLowSystemDelay);
  });
  platform::IgnoreErrors([] {
    if (DataCenter.settings.BatLowUPSEnable)
      StartUPSShutdown(DataCenter.settings.BatLowUPSDelay, kNoRestart);
  });
  DataCenter.latches.BatLowLatched = kSet;
  RecordWithPopup(kBatteryLow);
}

void EventPowerBack() {
  if (!DataCenter.latches.PowerFailLatched) return;
  DataCenter.latches.PowerFailLatched = kClear;
  CancelCountdowns();
  RecordEvent(kPowerBack);
}

void ClearBatteryLow() {
  if (!DataCenter.latches.BatLowLatched) return;
  DataCenter.latches.BatLowLatched = kClear;
  if (!DataCenter.flags.Utility) CancelCountdowns();
}

void EventOverload() {
  if (DataCenter.latches.OverloadLatched) return;
  DataCenter.latches.OverloadLatched = kSet;
  RecordWithPopup(kOverload);
}

void EventUPSFail() {
  if (DataCenter.latches.UPSFailLatched) return;
  DataCenter.latches.UPSFailLatched = kSet;
  RecordWithPopup(kUPSFail);
}

void EventTestStart() {
  if (DataCenter.latches.TestLatched) return;
  DataCenter.latches.TestLatched = kSet;
  RecordEvent(kTestStart);
}

void AddEventLine(const std::string& text) {
  auto& lines = DataCenter.DebugLines;
  std::move_backward(lines.begin(), lines.end() - 1, lines.end());
  lines[0] = platform::FormatDateTime(platform::Now()) + "  " + text;
  if (DataCenter.FormOpen[kDashboard] && DebugLinesRefresh()) DebugLinesRefresh()();
}

void OnDebugLinesChanged(std::function<void()> refresh) {
  DebugLinesRefresh() = std::move(refresh);
}

}  // namespace varek
