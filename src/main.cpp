// The program: makes the application and the controller, and runs the loop.

#include "core/controller.h"
#include "core/error_list.h"
#include "platform/application.h"
#include "platform/guard.h"

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
  controller.Form_Load();
  application.Run();
  controller.Stop();  // The desktop has asked the program to quit.
}
