#include "app/start_up.h"

#include <cstdio>

#include "core/data_center.h"
#include "platform/copies/single_copy.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "platform/system/service.h"

namespace varek {

namespace {

constexpr char kEntryName[] = "Varek";
constexpr char kInstall[] = "\\install";
constexpr char kStart[] = "\\start";
constexpr char kClose[] = "\\close";
constexpr char kUninstall[] = "\\uninstall";
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

/// Whoever lacks a right must not have to guess what to do.
void TellWhatToType(const std::string& lack, const std::string& argument) {
  const std::string program = platform::ProgramFolder() + "/Varek";
  const std::string words = argument.empty() ? "" : " '" + argument + "'";
  platform::MessageBox(lack + " Use: sudo '" + program + "'" + words);
}

StartUp Refuse(const std::string& argument) {
  if (platform::MayAskManager()) {
    platform::MessageBox(argument + " was not done: the system's files can't be written.");
  } else {
    TellWhatToType(argument + " was not done: only an administrator may do this.", argument);
  }
  return StartUp::Refused;
}

bool InstallEntry() {
  bool ok = false;
  SetStartProgram(kEntryName, kStartedBySystem, ok);
  return ok;
}

/// The autostart entry is all that there is to install.
StartUp InstallEntryOrGoOn() {
  if (InstallEntry()) return StartUp::End;
  Refuse(kInstall);
  return StartUp::GoOn;
}

StartUp InstallBothEntries() {
  bool ok = false;
  SetStartProgram(kEntryName, kStartedBySystem, ok);
  SetStartProgram98(kEntryName, "", ok);
  return StartUp::GoOn;
}

StartUp WithoutService(const std::string& argument, bool oldSystem) {
  if (argument == kInstall) return oldSystem ? InstallBothEntries() : InstallEntryOrGoOn();
  if (argument == kStart) return AnotherInstanceRuns() ? ShowRunningCopy() : StartUp::GoOn;
  if (argument == kClose || argument == kUninstall) return StartUp::End;
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
  if (TryService(platform::InstallService) || InstallEntry()) return StartUp::End;
  return Refuse(kInstall);
}

StartUp StartThroughService() {
  if (AnotherInstanceRuns()) return ShowRunningCopy();
  if (!platform::MayAskManager()) return Refuse(kStart);
  platform::ReleaseCopyLock();  // The service must not take this process for the running copy.
  TryService(platform::StartService);
  return StartUp::End;
}

StartUp StopThroughService() {
  if (!platform::MayAskManager()) return Refuse(kClose);
  TryService(platform::StopService);
  return StartUp::End;
}

StartUp Uninstall() {
  return TryService(platform::UninstallService) ? StartUp::End : Refuse(kUninstall);
}

/// A process that the manager has not started simply goes on as a tray application.
StartUp BecomeService() {
  TryService(platform::StartServiceControl);
  return StartUp::GoOn;
}

StartUp WithService(const std::string& argument) {
  if (argument == kInstall) return InstallServiceOrEntry();
  if (argument == kStart) return StartThroughService();
  if (argument == kClose) return StopThroughService();
  if (argument == kUninstall) return Uninstall();
  if (argument == kStartedBySystem && AnotherInstanceRuns()) return StartUp::End;
  return BecomeService();
}

}  // namespace

StartUp CheckRights(const std::string& argument) {
  if (platform::MayUseProgramFolder()) return StartUp::GoOn;
  if (HandleFailedStart(argument) == StartUp::End) return StartUp::End;
  TellWhatToType("Varek was not started: this account may not read and write all of " +
                     platform::ProgramFolder() + ".",
                 argument);
  return StartUp::Refused;
}

StartUp HandleCommandLine(const std::string& argument, int osKind) {
  DataCenter.OSKind = static_cast<int16_t>(osKind);
  if (osKind == kServiceKind) return WithService(argument);
  return WithoutService(argument, osKind == kWindows95Kind);
}

StartUp HandleFailedStart(const std::string& argument) {
  const bool isJob = argument == kInstall || argument == kClose || argument == kUninstall;
  if (isJob || !AnotherInstanceRuns()) return StartUp::GoOn;
  return argument == kStartedBySystem ? StartUp::End : ShowRunningCopy();
}

bool AnotherInstanceRuns() { return platform::AnotherCopyRuns(); }

void SendShow() {
  platform::StopListening();
  const std::string answer = platform::SendToCopy(kShow);
  if (!answer.empty()) std::puts(answer.c_str());
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
