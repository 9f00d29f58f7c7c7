// The controller, a window that is never shown and never closed: it is the program. It owns the
// timers that drive everything, starts the program in order and stops it in order.
#pragma once

#include <string>

#include "core/forms.h"
#include "link/poll_cycle.h"
#include "platform/time/timers.h"
#include "records/shutdown/ups_countdown.h"

namespace varek {

class Form12 final : public FormEntry {
 public:
  static constexpr int kNumber = 12;

  /// The timers run from here on.
  Form12();
  ~Form12() override;

  bool IsLoaded() const override { return true; }
  /// Nothing: the controller goes only with the process.
  void Unload() override {}
  /// The captions of the tray menu.
  void ApplyLanguage() override;

  /// The start of the process, step by step. `commandLine` is all that stands behind the program's
  /// name. An error at any step is reported to the person, stops everything and ends the process
  /// with status 1.
  void Form_Load(const std::string& commandLine = "");

  /// Stops everything but the process itself; the caller ends the process right after.
  void EndUPSEE();

  /// The stop that comes from outside (the service manager, a signal): EndUPSEE, then the end of
  /// the process with status 0. A UPS that is being told to switch off is told first, for at most
  /// five seconds; so this may return, and the event loop must go on.
  void Stop();

  /// The session wants the window to close. Unless the program is ending, `cancel` becomes true:
  /// every other window goes, and the monitor goes on with a new tray icon.
  void Form_Unload(bool& cancel);

  /// A text from a later copy: "Show" brings up the dashboard, any other is ignored. Without a
  /// display nothing opens, and the answer to "Show" tells where the web console is.
  std::string Form_LinkExecute(const std::string& text);

  /// The tray menu's first item, and a double click on the icon.
  void SHOWPROGRAM_Click();
  bool IsWindowShown() const { return WindowShown; }

  /// The tray menu's last item. A service is stopped through its manager, which then stops it.
  void ENDPROG_Click();

 private:
  void End(int status);
  void LoadSteps(const std::string& commandLine);
  void YieldToRunningCopy();
  void OpenStorage();
  void SearchPortOnce();

  void AddDataTimer_Timer();
  void Timer1_Timer();

  PollCycle poll_;
  AfterUPSOrder stop_;
  bool startRecorded_ = false;  ///< event 1 is out, so event 2 has to follow
  bool started_ = false;        ///< all steps of the start are done
  bool WindowShown = false;     ///< the dashboard was shown through the tray
  /// First of the timers, so that an icon that comes with the first tick already follows its stage.
  platform::Timer Timer1;
  platform::Timer COMtime;
  platform::Timer AddDataTimer;
  platform::Timer ScheduleTimer;
};

}  // namespace varek
