// ShowAutoSave: tells the person, once in a desktop session, that programs can be run before a
// shutdown. Silent where nobody would see it, where it is not wanted, and where all is set up.

#include <sstream>
#include <string>

#include "autosave/hint_memory.h"
#include "autosave/hint_window.h"
#include "autosave/save_jobs.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "platform/toolkit/application.h"
#include "platform/toolkit/display.h"

namespace {

constexpr int kSwitchLine = 10;

/// The switch "save" of the system settings; off when they can't be read.
bool IsSwitchedOn() try {
  std::istringstream lines(platform::ReadWholeFile(platform::ProgramPath("\\config.qmz")));
  std::string line;
  for (int i = 0; i < kSwitchLine; ++i) std::getline(lines, line);
  return line == "T" || line == "T\r";
} catch (const platform::RuntimeError&) {
  return false;
}

bool IsSetUp() { return IsSwitchedOn() && !sidecar::FindSaveJobs().names.empty(); }

}  // namespace

int main(int argc, char** argv) {
  if (IsSetUp() || sidecar::IsHintSilenced()) return 0;
  platform::Application application(argc, argv);
  if (!platform::HasDisplay() || sidecar::WasGivenInThisSession()) return 0;
  sidecar::HintWindow window;
  application.OnStopSignal([&window] { window.close(); });
  window.PlaceInCorner();
  window.show();
  application.Run();
  return 0;
}
