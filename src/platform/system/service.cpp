#include "platform/system/service.h"
#include "platform/errors/log.h"

#include <systemd/sd-daemon.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "platform/system/process.h"
#include "platform/system/service_unit.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr char kUnit[] = "varekservice.service";
constexpr char kUnitFolder[] = "/etc/systemd/system";
constexpr char kPackageUnitFolder[] = "/lib/systemd/system";
constexpr char kWantsFolder[] = "/etc/systemd/system/multi-user.target.wants";
constexpr char kAutostartFolder[] = "/etc/xdg/autostart";
constexpr char kNotifySocket[] = "NOTIFY_SOCKET";
constexpr char kManagerSign[] = "/run/systemd/system";
constexpr char kJournalSocket[] = "/run/systemd/journal/socket";

constexpr int kAlarmPriority = 1;
constexpr int kErrorPriority = 3;
constexpr int kInformationPriority = 6;

bool runsAsService = false;
/// The manager's socket; the programs that are started from here must not notify for the service.
std::string managerSocket;

std::string Root() {
  const char* root = std::getenv("VAREK_ROOT");
  return root ? root : "";
}

std::string UnitPath() { return Root() + kUnitFolder + "/" + kUnit; }
std::string WantsPath() { return Root() + kWantsFolder + "/" + kUnit; }

/// Doubles every one of `characters` with the sign `before` it.
std::string Escaped(const std::string& text, const std::string& characters, char before) {
  std::string result;
  for (char c : text) {
    if (characters.find(c) != std::string::npos) result += before;
    result += c;
  }
  return result;
}

/// The program's path as the system below VAREK_ROOT sees it.
std::string ProgramInSystem() {
  const std::string path = ProgramFolder() + "/Varek";
  const std::string root = Root();
  return !root.empty() && path.starts_with(root + "/") ? path.substr(root.size()) : path;
}

/// A path as the manager's files want it: quoted, its specifiers doubled. The manager takes no
/// program whose path has quotes or backslashes, however they are written.
std::string UnitWord(const std::string& path) {
  if (path.find_first_of("'\"\\") != std::string::npos) {
    throw RuntimeError(errors::kPathAccess, path + ": the service manager takes no such path");
  }
  return "\"" + Escaped(path, "%", '%') + "\"";
}

std::string UnitCommand() { return UnitWord(ProgramInSystem()); }

std::string UnitText() {
  const std::string folder = fs::path(ProgramInSystem()).parent_path().string();
  std::string text = kUnitTemplate;
  text.replace(text.find(kUnitCommandMark), std::strlen(kUnitCommandMark), UnitCommand());
  text.replace(text.find(kUnitFolderMark), std::strlen(kUnitFolderMark), UnitWord(folder));
  return text;
}

/// As links between the manager's files are written: without VAREK_ROOT.
std::string PackageUnit() { return std::string(kPackageUnitFolder) + "/" + kUnit; }

/// Another copy of the program folder must not take the package's unit for its own.
bool PackageUnitStartsThisFolder() {
  const std::string path = Root() + PackageUnit();
  return IsFile(path) &&
         ReadWholeFile(path).find("ExecStart=" + UnitCommand() + "\n") != std::string::npos;
}

/// Files of the system are for everyone to read.
void WriteSystemFile(const std::string& path, const std::string& text) {
  std::error_code error;
  fs::create_directories(fs::path(path).parent_path(), error);
  ReplaceFile(path, text);
  fs::permissions(path, fs::perms(0644), error);
}

void RemoveFile(const std::string& path) {
  std::error_code error;
  fs::remove(path, error);
  if (error) throw RuntimeError(errors::kPathAccess, path + ": " + error.message());
}

/// Lets the system's start want the unit at `target`.
void EnableUnit(const std::string& target) {
  std::error_code error;
  fs::create_directories(Root() + kWantsFolder, error);
  fs::remove(WantsPath(), error);
  fs::create_symlink(target, WantsPath(), error);
  if (error) throw RuntimeError(errors::kPathAccess, WantsPath() + ": " + error.message());
}

/// A unit of ours would take precedence over the package's.
void EnablePackageUnit() {
  RemoveFile(UnitPath());
  EnableUnit(PackageUnit());
}

void InstallOwnUnit() {
  WriteSystemFile(UnitPath(), UnitText());
  try {
    EnableUnit(std::string("../") + kUnit);
  } catch (const RuntimeError&) {
    std::error_code ignored;
    fs::remove(UnitPath(), ignored);  // Nothing is installed by halves.
    throw;
  }
}

void AskManager(const std::string& request) { StartCommandLine("systemctl " + request); }

/// One quoted word of a desktop entry's command. The entry takes one level of backslashes away, the
/// command's quoting another.
std::string DesktopWord(const std::string& word) {
  const std::string quoted = "\"" + Escaped(word, "\"\\`$", '\\') + "\"";
  return Escaped(Escaped(quoted, "\\", '\\'), "%", '%');
}

std::string DesktopText(const std::string& name, const std::string& arguments) {
  std::string command = DesktopWord(ProgramInSystem());
  if (!arguments.empty()) command += " " + DesktopWord(arguments);
  return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + command + "\n";
}

}  // namespace

int OperatingSystemKind() {
  std::error_code error;
  return fs::is_directory(Root() + kManagerSign, error) ? 2 : 0;
}

void InstallService() {
  PackageUnitStartsThisFolder() ? EnablePackageUnit() : InstallOwnUnit();
  AskManager("daemon-reload");
}

void UninstallService() {
  RemoveFile(WantsPath());
  RemoveFile(UnitPath());
  AskManager("daemon-reload");
}

bool MayAskManager() { return geteuid() == 0 || !Root().empty(); }

void StartService() { AskManager(std::string("start ") + kUnit); }

void StopService() { AskManager(std::string("stop ") + kUnit); }

void StartServiceControl() {
  // A program that the service has started inherits its environment but is not the service; so
  // the manager's own note of whom it started counts, and the notification socket is taken away.
  const char* started = std::getenv("SYSTEMD_EXEC_PID");
  const char* socket = std::getenv(kNotifySocket);
  const std::string path = socket ? socket : "";
  const bool byManager = started && started == std::to_string(getpid());
  if (!byManager || sd_notify(1, "STATUS=starting") <= 0) {
    throw RuntimeError(errors::kNotAService, "the process was not started as a service");
  }
  managerSocket = path;
  runsAsService = true;
}

bool RunsAsService() { return runsAsService; }

void ReportServiceStatus(const std::string& status) {
  static std::string known;
  if (!runsAsService || status == known) return;
  const std::string text = (known.empty() ? "READY=1\nSTATUS=" : "STATUS=") + status;
  setenv(kNotifySocket, managerSocket.c_str(), 1);
  sd_notify(1, text.c_str());
  known = status;
}

void LogAlarm(const std::string& text) {
  if (access(kJournalSocket, W_OK) != 0) return LogLine(text);
  sd_journal_send("MESSAGE=%s", text.c_str(), "PRIORITY=%i", kAlarmPriority, nullptr);
}

void LogServiceEntry(LogType type, int number, const std::string& text) {
  if (access(kJournalSocket, W_OK) != 0) {
    return LogLine(std::to_string(static_cast<int>(type)) + " " + std::to_string(number) + " " +
                   text);
  }
  sd_journal_send("MESSAGE=%s", text.c_str(), "PRIORITY=%i",
                  type == LogType::Error ? kErrorPriority : kInformationPriority, "VAREK_TYPE=%d",
                  static_cast<int>(type), "VAREK_NUMBER=%d", number, nullptr);
}

bool SetAutostart(Autostart place, const std::string& name, const std::string& arguments) {
  const std::string suffix = place == Autostart::Run ? ".desktop" : "-services.desktop";
  try {
    WriteSystemFile(Root() + kAutostartFolder + "/" + name + suffix, DesktopText(name, arguments));
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace platform
