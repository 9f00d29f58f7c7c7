#include "views/dashboard/control_buttons.h"

#include "core/data_center.h"
#include "core/link_record.h"
#include "records/shutdown.h"

namespace varek {

void PressControl(ControlButton control) {
  switch (control) {
    case kShortTest:
      Link.PendingCommand = "T";
      break;
    case kTestUntilBatteryLow:
      Link.PendingCommand = "TL";
      break;
    case kCancelTest:
      Link.PendingCommand = "CT";
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
