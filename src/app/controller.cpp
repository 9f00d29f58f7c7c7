#include "app/controller.h"

#include "app/start_up.h"
#include "app/windows.h"
#include "core/configuration.h"
#include "core/data_center.h"
#include "core/debug_lines.h"
#include "core/forms.h"
#include "core/link_record.h"
#include "link/port_search.h"
#include "link/usb_link.h"
#include "platform/copies/single_copy.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/guard.h"
#include "platform/errors/log.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "platform/system/process.h"
#include "platform/system/service.h"
#include "platform/toolkit/application.h"
#include "platform/toolkit/display.h"
#include "records/events.h"
#include "records/files/databases.h"
#include "records/files/recording.h"
#include "records/notices/event_record.h"
#include "scheduler/schedule_runner.h"
#include "texts/language.h"
#include "tray/tray.h"
#include "views/dashboard/dashboard.h"
#include "web/server/web_console.h"

namespace varek {

namespace {

constexpr int kPollInterval = 500;
constexpr int kSampleInterval = 1000;
constexpr int kScheduleInterval = 60000;
constexpr int kTrayInterval = 1000;
constexpr char kProgramName[] = "Varek";

/// The windows that the stop unloads before the databases close; the dashboard goes last.
constexpr int kFormsBeforeDatabases[] = {2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
constexpr int kDashboard = 1;

/// The windows that go when the session asks the controller to close: all but the controller and
/// the web console.
constexpr int kFormsOfTheSession[] = {1, 2, 3, 4, 5, 6, 7, 9, 10, 11, 13, 14, 15, 16, 17};

template <size_t N>
void UnloadForms(const int (&numbers)[N]) {
  for (int number : numbers) UnloadForm(number);
}

/// USB also stands for a search that has found nothing: the poll cycle goes on looking there.
void AdoptPort(int16_t port) {
  if (port == kUsbPort || port == 0) return SelectUsb();
  if (port >= kFirstComPort && port <= kLastComPort) SelectSerial(port);
}

/// What the console is doing. The entry of the desktop's menu opens the port that stands behind
/// "web console on port ", up to a comma: do not change.
std::string ConsoleStatus() {
  if (!DataCenter.settings.WebEnabled) return "web console off";
  const std::string port = std::to_string(DataCenter.settings.WebPort);
  if (WebConsoleListens()) return "web console on port " + port;
  return "web console can't have port " + port;
}

/// What everybody may read of the service.
std::string ServiceStatus() {
  return ConsoleStatus() + (DataCenter.DatabaseReady ? "" : ", no database") +
         (DataCenter.IsConnect ? "" : ", no UPS");
}

/// The answer to a later copy when there is no display to show the dashboard on.
std::string WhereTheConsoleIs() {
  const std::string running = "Varek is running without a display. Its web console ";
  if (!DataCenter.settings.WebEnabled) return running + "is off.";
  const std::string port = std::to_string(DataCenter.settings.WebPort);
  if (!WebConsoleListens()) return running + "waits for port " + port + ", which is taken.";
  return running + "is at http://127.0.0.1:" + port + "/";
}

/// The settings behind the superfluous line have moved: whoever relies on them must know.
void TellOfLongConfig() {
  const char* const text = "config.qmz has more than 53 lines: check all settings";
  platform::LogLine(text);
  AddEventLine(text);
}

void TellNoStart(const std::exception& error) {
  platform::LogLine(std::string("start: ") + error.what());
  platform::MessageBox("Initial Error!", kProgramName, platform::MessageIcon::Exclamation);
}

}  // namespace

Form12::Form12()
    : FormEntry(kNumber),
      stop_("form12 stop", [this] { End(0); }),
      Timer1(
          "form12 Timer1", [this] { Timer1_Timer(); }, kTrayInterval),
      COMtime(
          "form12 COMtime", [this] { poll_.COMtime_Timer(); }, kPollInterval),
      AddDataTimer(
          "form12 AddDataTimer", [this] { AddDataTimer_Timer(); }, kSampleInterval),
      ScheduleTimer("form12 ScheduleTimer", RunSchedule, kScheduleInterval) {
  ConnectWindows();
  SetTrayActions([this] { SHOWPROGRAM_Click(); }, [this] { ENDPROG_Click(); });
}

Form12::~Form12() = default;

void Form12::ApplyLanguage() { ApplyTrayLanguage(); }

void Form12::Form_Load(const std::string& commandLine) {
  try {
    LoadSteps(commandLine);
  } catch (const std::exception& error) {
    if (HandleFailedStart(commandLine) == StartUp::End) End(0);
    TellNoStart(error);
    End(1);
  }
}

void Form12::LoadSteps(const std::string& commandLine) {
  DataCenter.ExitInProgress = kClear;
  ReadConfig();
  Tray.TipText = kProgramName;
  Usb.Failures = 0;
  const StartUp start = HandleCommandLine(commandLine, platform::OperatingSystemKind());
  if (start != StartUp::GoOn) End(start == StartUp::End ? 0 : 1);
  Loadlanguage(DataCenter.settings.LanguageIndex);
  YieldToRunningCopy();
  DataCenter.FormOpen[kNumber] = kSet;
  if (ConfigWasTooLong()) TellOfLongConfig();
  // The poll cycle runs while the message about the databases is open: no link may be lost behind
  // it.
  Link.LinkUp = 0;
  Link.UsbOpen = 0;
  OpenStorage();
  LoadTrayPicture();
  if (DataCenter.settings.WebEnabled) StartWebConsole();
  NewKey();
  startRecorded_ = true;
  EventProgramStart();
  platform::StartProgram(platform::ProgramFolder() + "\\ShowAutoSave.exe", "",
                         platform::WindowStyle::NormalNoFocus);
  SearchPortOnce();
  started_ = true;
  platform::ReportServiceStatus(ServiceStatus());
}

/// One running copy: a later one wakes it and ends.
void Form12::YieldToRunningCopy() {
  if (AnotherInstanceRuns()) {
    SendShow();
    End(0);
  }
  platform::ListenToCopies([this](const std::string& text) { return Form_LinkExecute(text); });
}

void Form12::OpenStorage() {
  OpenDatabases();
  if (DataCenter.DatabaseReady) return;
  platform::MessageBox("Init Database Error!", kProgramName, platform::MessageIcon::Exclamation);
}

/// The search runs only on the first start after it was asked for.
void Form12::SearchPortOnce() {
  if (!DataCenter.settings.AutoSearchPort) return;
  const int16_t before = Link.PortNumber;
  int16_t port = 0;
  findport(port);
  const bool chosenMeanwhile = Link.PortNumber != before;
  if (!chosenMeanwhile) AdoptPort(port);
  DataCenter.settings.AutoSearchPort = kClear;
  WriteConfig();
}

void Form12::AddDataTimer_Timer() {
  if (DataCenter.IsConnect && DataCenter.DatabaseReady) AddSample();
  CheckUPSEvents();
  KeepRecording();
  if (started_) platform::ReportServiceStatus(ServiceStatus());
}

void Form12::Timer1_Timer() {
  if (Tray.TrayIconHandle == 0) TrayAdd();
  if (Tray.TrayIconHandle == 0) return;
  Timer1.SetInterval(0);
  Timer1.SetEnabled(false);
}

void Form12::EndUPSEE() {
  DataCenter.ExitInProgress = kSet;
  AddDataTimer.SetInterval(0);
  ScheduleTimer.SetInterval(0);
  Link.MSComm2.Close();
  Link.MSComm1.Close();
  if (startRecorded_) EventProgramEnd();
  RequestSearchExit();
  StopWebConsole();
  TrayDelete();
  UnloadForms(kFormsBeforeDatabases);
  CloseDatabases();
  UnloadForm(kDashboard);
}

void Form12::Stop() { stop_.Begin(); }

/// A step of the stop that fails must not leave half a process behind.
void Form12::End(int status) {
  platform::Guarded("form12 EndUPSEE", [this] {
    try {
      EndUPSEE();
    } catch (const platform::RuntimeError& error) {
      if (platform::RunsAsService()) LogServiceError(error.Number(), error.what());
      throw;
    }
  });
  platform::StopListening();
  platform::EndProcess(status);
}

void Form12::Form_Unload(bool& cancel) {
  if (DataCenter.ExitInProgress) return;
  UnloadForms(kFormsOfTheSession);
  ForgetTrayIcon();
  Timer1.SetEnabled(true);
  Timer1.SetInterval(kTrayInterval);
  cancel = true;
}

std::string Form12::Form_LinkExecute(const std::string& text) {
  if (text != "Show") return {};
  if (!platform::HasDisplay()) return WhereTheConsoleIs();
  SHOWPROGRAM_Click();
  return {};
}

void Form12::SHOWPROGRAM_Click() {
  if (OpenForPerson("form12 SHOWPROGRAM_Click", ShowDashboard)) WindowShown = true;
}

void Form12::ENDPROG_Click() {
  if (platform::RunsAsService()) return platform::StopService();
  Stop();
}

}  // namespace varek
