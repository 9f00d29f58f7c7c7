// alert: shows an event of the UPS in a warning window on top of all others. A second one adds its
// line to the window that is open. Without a display the text goes to the log alone.

#include <string>
#include <vector>

#include "alert/alert_text.h"
#include "alert/alert_window.h"
#include "platform/copies/text_collector.h"
#include "platform/errors/log.h"
#include "platform/errors/runtime_error.h"
#include "platform/time/clock.h"
#include "platform/toolkit/application.h"
#include "platform/toolkit/display.h"

namespace {

/// Returns when the window has been closed, or another one shows the text.
void ShowAlert(platform::Application& application, const std::string& text) {
  platform::TextCollector collector("alert");
  if (collector.HandOver(text)) return;
  sidecar::AlertWindow window;
  window.AddLine(text);
  collector.Collect(
      [&window](const std::string& later) { window.AddLine(sidecar::PlainLine(later)); });
  window.OnClose([&collector] { collector.Stop(); });
  application.OnStopSignal([&window] { window.close(); });
  application.Run();
}

int Alert(int argc, char** argv) {
  const std::string text = sidecar::EventText({argv + 1, argv + argc});
  platform::Application application(argc, argv);
  if (platform::HasDisplay()) {
    ShowAlert(application, text);
  } else {
    sidecar::LogAlert(platform::FormatDateTime(platform::Now()), text);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) try {
  return Alert(argc, argv);
} catch (const platform::RuntimeError& error) {
  platform::LogLine("alert: " + std::string(error.what()));
  return 1;
}
