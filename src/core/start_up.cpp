#include "core/start_up.h"

#include <cstdio>

#include "core/data_center.h"
#include "platform/process.h"
#include "platform/runtime_error.h"
#include "platform/service.h"
#include "platform/single_copy.h"
#include "web/web_console.h"

namespace varek {

namespace {

constexpr char kEntryName[] = "Varek";
/// Tells a start by the system from one by a person.
constexpr char kStartedBySystem[] = "\\M";
constexpr char kShow[] = "Show";

// Numbers of the service's log entries.
constexpr int kErrorEntry = 109;
constexpr int kInformationEntry = 110;

constexpr int kWindows95Kind = 1;
constexpr int kServiceKind = 2;

StartUp EndWhenAnotherRuns() { return AnotherInstanceRuns() ? StartUp::End : StartUp::GoOn; }

StartUp ShowRunningCopy() {
  SendShow();
  return StartUp::End;
}

/// The autostart entry is all that there is to install.
StartUp InstallEntry() {
  bool ok = false;
  SetStartProgram(kEntryName, kStartedBySystem, ok);
  return ok ? StartUp::End : StartUp::GoOn;
}

StartUp InstallBothEntries() {
  bool ok = false;
  SetStartProgram(kEntryName, kStartedBySystem, ok);
  SetStartProgram98(kEntryName, "", ok);
  return StartUp::GoOn;
}

StartUp WithoutService(const std::string& argument, bool oldSystem) {
  if (argument == "\\install") return oldSystem ? InstallBothEntries() : InstallEntry();
  if (argument == "\\start") return AnotherInstanceRuns() ? ShowRunningCopy() : StartUp::GoOn;
  if (argument == "\\close" || argument == "\\uninstall") return StartUp::End;
  if (argument == kStartedBySystem) return EndWhenAnotherRuns();
  return StartUp::GoOn;
}

/// Runs a job for the service manager; a failure is logged. False when it failed.
bool TryService(void (*job)()) {
  try {
    job();
    return true;
  } catch (const platform::RuntimeError& error) {
    LogServiceError(error.Number(), error.what());
    return false;
  }
}

StartUp InstallServiceOrEntry() {
  if (!TryService(platform::InstallService)) InstallEntry();
  return StartUp::End;
}

StartUp StartThroughService() {
  if (AnotherInstanceRuns()) return ShowRunningCopy();
  platform::ReleaseCopyLock();  // The service must not take this process for the running copy.
  TryService(platform::StartService);
  return StartUp::End;
}

StartUp StopThroughService() {
  TryService(platform::StopService);
  return StartUp::End;
}

StartUp Uninstall() {
  TryService(platform::UninstallService);
  return StartUp::End;
}

/// A process that the manager has not started simply goes on as a tray application.
StartUp BecomeService() {
  TryService(platform::StartServiceControl);
  return StartUp::GoOn;
}

StartUp WithService(const std::string& argument) {
  if (argument == "\\install") return InstallServiceOrEntry();
  if (argument == "\\start") return StartThroughService();
  if (argument == "\\close") return StopThroughService();
  if (argument == "\\uninstall") return Uninstall();
  if (argument == kStartedBySystem && AnotherInstanceRuns()) return StartUp::End;
  return BecomeService();
}

}  // namespace

StartUp HandleCommandLine(const std::string& argument, int osKind) {
  DataCenter.OSKind = static_cast<int16_t>(osKind);
  if (osKind == kServiceKind) return WithService(argument);
  return WithoutService(argument, osKind == kWindows95Kind);
}

StartUp HandleFailedStart(const std::string& argument) {
  const bool isJob = argument == "\\install" || argument == "\\close" || argument == "\\uninstall";
  if (isJob || !AnotherInstanceRuns()) return StartUp::GoOn;
  return argument == kStartedBySystem ? StartUp::End : ShowRunningCopy();
}

bool AnotherInstanceRuns() { return platform::AnotherCopyRuns(); }

void SendShow() {
  platform::StopListening();
  const std::string answer = platform::SendToCopy(kShow);
  if (!answer.empty()) std::puts(answer.c_str());
}

std::string WhereTheConsoleIs() {
  const std::string running = "Varek is running without a display. Its web console ";
  if (!DataCenter.WebEnabled) return running + "is off.";
  const std::string port = std::to_string(DataCenter.WebPort);
  if (!WebConsoleListens()) return running + "waits for port " + port + ", which is taken.";
  return running + "is at http://127.0.0.1:" + port + "/";
}

void SetStartProgram(const std::string& name, const std::string& arguments, bool& ok) {
  ok = platform::SetAutostart(platform::Autostart::Run, name, arguments);
}

void SetStartProgram98(const std::string& name, const std::string& arguments, bool& ok) {
  ok = platform::SetAutostart(platform::Autostart::RunServices, name, arguments);
}

void NTService_Continue(bool& success) {
  success = true;
  platform::LogServiceEntry(platform::LogType::Information, kInformationEntry, "Service Continued");
}

void NTService_Pause(bool& success) {
  platform::LogServiceEntry(platform::LogType::Error, kErrorEntry, "Service Paused");
  success = true;
}

void LogServiceError(int number, const std::string& description) {
  platform::LogServiceEntry(platform::LogType::Error, kErrorEntry,
                            "[" + std::to_string(number) + "] " + description);
}

}  // namespace varek
