#include "records/events.h"

#include "core/data_center.h"
#include "core/unit_commands.h"
#include "platform/errors/guard.h"
#include "platform/errors/on_exit.h"
#include "records/notices/event_record.h"
#include "records/shutdown/shutdown.h"
#include "tray/tray.h"

namespace varek {

namespace {

constexpr float kFullLoad = 100;

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

}  // namespace

void CheckUPSEvents() {
  FollowStage();
  DataCenter.flags.Utility ? EventPowerFail() : EventPowerBack();
  DataCenter.flags.BatLow ? EventBatteryLow() : ClearBatteryLow();
  Compare(DataCenter.flags.TestProgress, EventTestStart, DataCenter.latches.TestLatched);
  Compare(DataCenter.flags.UPSFailed, EventUPSFail, DataCenter.latches.UPSFailLatched);
  Compare(GetLoadPercent() > kFullLoad, EventOverload, DataCenter.latches.OverloadLatched);
}

void EventPowerFail() {
  if (DataCenter.latches.PowerFailLatched) return;
  {
    // A row or a pop-up that fails must not bring the countdowns back to their beginning at the
    // next tick.
    const platform::OnExit latch([] { DataCenter.latches.PowerFailLatched = kSet; });
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

}  // namespace varek
