// The program: makes the application and the controller, and runs the loop.

#include <string>

#include "core/controller.h"
#include "core/error_list.h"
#include "core/start_up.h"
#include "platform/application.h"
#include "platform/guard.h"

namespace {

/// All that stands behind the program's name.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) line += (i > 1 ? " " : "") + std::string(argv[i]);
  return line;
}

}  // namespace

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  platform::SetErrorSink([](const std::string& place, int number, const std::string&) {
    varek::Form13::AddError(place, number);
  });
  varek::Form12 controller;
  application.OnStopSignal([&] { controller.Stop(); });
  application.OnSessionEnd([&] {
    bool cancel = false;
    controller.Form_Unload(cancel);
  });
  application.OnPauseSignals([](bool pause) {
    bool success = false;
    pause ? varek::NTService_Pause(success) : varek::NTService_Continue(success);
  });
  controller.Form_Load(CommandLine(argc, argv));
  application.Run();
  controller.Stop();  // The desktop has asked the program to quit.
}
