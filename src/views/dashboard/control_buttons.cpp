#include "views/dashboard/control_buttons.h"

#include "core/data_center.h"
#include "core/link_record.h"
#include "records/shutdown.h"

namespace varek {

void PressControl(int number) {
  switch (number) {
    case 3:
      Link.PendingCommand = "T";
      break;
    case 4:
      Link.PendingCommand = "TL";
      break;
    case 5:
      Link.PendingCommand = "CT";
      break;
    case 6:
      StartUPSShutdown(DataCenter.settings.UPSShutdownBuffer, kUntimedRestart);
      break;
    case 7:
      StartSystemShutdown(DataCenter.settings.SystemShutdownBuffer);
      break;
    case 8:
      CancelShutdowns();
      break;
  }
}

}  // namespace varek
