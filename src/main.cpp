// The program: makes the application and the controller, and runs the loop.

#include <string>

#include "app/controller.h"
#include "app/start_up.h"
#include "core/error_list.h"
#include "core/journal.h"
#include "platform/errors/guard.h"
#include "platform/toolkit/application.h"
#include "texts/language.h"
#include "views/kit/windows/message_window.h"

namespace {

/// All that stands behind the program's name.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) line += (i > 1 ? " " : "") + std::string(argv[i]);
  return line;
}

/// The list is for the program; the administrator reads the journal.
void ListError(const std::string& place, int number, const std::string& description) {
  varek::Form13::AddError(place, number);
  varek::TellEscaped(place, number, description);
}

}  // namespace

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  platform::SetErrorSink(ListError, varek::TellOver);
  varek::DressMessageBoxes([] { return varek::LangText[varek::texts::kOk]; });
  const varek::StartUp rights = varek::CheckRights(CommandLine(argc, argv));
  if (rights != varek::StartUp::GoOn) return rights == varek::StartUp::End ? 0 : 1;
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
