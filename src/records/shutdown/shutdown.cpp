#include "records/shutdown/shutdown.h"

#include "core/data_center.h"
#include "core/forms.h"
#include "core/link_record.h"
#include "core/unit_commands.h"
#include "records/shutdown/system_countdown.h"
#include "records/shutdown/ups_countdown.h"

namespace varek {

namespace {

bool OutputIsAlive() { return DataCenter.readings.OutputVoltage > 0; }

}  // namespace

void StartSystemShutdown(int minutes) { SystemCountdown().Get().SysShuntDown(minutes); }

void StartUPSShutdown(int minutes, int restart) {
  if (OutputIsAlive()) SetUPSShuntDown(minutes, restart);
}

void CancelShutdowns() {
  if (OutputIsAlive()) Link.PendingCommand = commands::kStopShutdown;
  UnloadForm(Form10::kNumber);
  UnloadForm(Form11::kNumber);
}

void CancelCountdowns() {
  CancelUPSShutdown();
  UnloadForm(Form10::kNumber);
}

}  // namespace varek
