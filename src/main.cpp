// The program: makes the application and the controller, and runs the loop.

#include <set>
#include <string>

#include "core/controller.h"
#include "core/error_list.h"
#include "core/start_up.h"
#include "platform/application.h"
#include "platform/guard.h"
#include "platform/message_box.h"

namespace {

/// All that stands behind the program's name.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) line += (i > 1 ? " " : "") + std::string(argv[i]);
  return line;
}

/// The list is for the program; whoever looks after the machine reads the journal. A port that
/// fails does so every second and is told of once.
void ListError(const std::string& place, int number, const std::string& description) {
  constexpr size_t kMostTold = 1000;
  static std::set<std::string> told;
  varek::Form13::AddError(place, number);
  const std::string line = place + ": error " + std::to_string(number) + ", " + description;
  if (told.size() < kMostTold && told.insert(line).second) platform::LogLine(line);
}

}  // namespace

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  platform::SetErrorSink(ListError);
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
  // The loop ends when the desktop asks the program to quit. The stop ends the process, but while
  // the UPS has to be told something first, the loop goes on.
  for (;; controller.Stop()) application.Run();
}
