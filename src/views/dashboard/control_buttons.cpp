#include "views/dashboard/control_buttons.h"

#include "core/data_center.h"
#include "core/link_record.h"
#include "core/unit_commands.h"
#include "records/shutdown/shutdown.h"

namespace varek {

void PressControl(ControlButton control) {
  switch (control) {
    case kShortTest:
      Link.PendingCommand = commands::kShortTest;
      break;
    case kTestUntilBatteryLow:
      Link.PendingCommand = commands::kTestUntilLow;
      break;
    case kCancelTest:
      Link.PendingCommand = commands::kStopTest;
      break;
    case kShutDownUnit:
      StartUPSShutdown(DataCenter.settings.UPSShutdownBuffer, kUntimedRestart);
      break;
    case kShutDownComputer:
      StartSystemShutdown(DataCenter.settings.SystemShutdownBuffer);
      break;
    case kCancelShutdowns:
      CancelShutdowns();
      break;
    case kControlCount:
      break;
  }
}

}  // namespace varek
