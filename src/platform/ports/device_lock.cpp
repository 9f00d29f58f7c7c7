#include "platform/ports/device_lock.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>

namespace platform {

namespace fs = std::filesystem;

namespace {

/// The toolkit uses the first of them that the account may use.
constexpr const char* kFolders[] = {"/var/lock",         "/etc/locks", "/var/spool/locks",
                                    "/var/spool/uucp",   "/tmp",       "/var/tmp",
                                    "/var/lock/lockdev", "/run/lock"};
/// The system keeps no more of a process's name.
constexpr size_t kNameLimit = 15;

fs::path LockFile(const std::string& device) {
  std::string name = device.starts_with("/dev/") ? device.substr(5) : device;
  std::ranges::replace(name, '/', '_');
  for (const char* folder : kFolders) {
    const bool usable = faccessat(AT_FDCWD, folder, R_OK | W_OK, AT_EACCESS) == 0;
    if (usable) return fs::path(folder) / ("LCK.." + name);
  }
  return {};
}

/// Empty for a process that has gone or is hidden.
std::string ProcessName(int process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/comm");
  std::string name;
  std::getline(file, name);
  return name;
}

/// A number can have gone to another program since, also to this one.
bool IsRunning(int process, const std::string& nameInLock, const std::string& name) {
  if (process <= 0 || process == getpid()) return false;
  if (kill(process, 0) != 0 && errno == ESRCH) return false;
  return nameInLock.empty() || name.empty() || nameInLock.substr(0, kNameLimit) == name;
}

}  // namespace

std::optional<LockHolder> FindLockHolder(const std::string& device) {
  std::ifstream file(LockFile(device));
  int process = 0;
  if (!(file >> process)) return {};
  std::string rest, nameInLock;  // Only the toolkit's locks have a name, on a line of its own.
  std::getline(file, rest);
  std::getline(file, nameInLock);
  const std::string name = ProcessName(process);
  return LockHolder{process, name.empty() ? nameInLock : name,
                    IsRunning(process, nameInLock, name)};
}

}  // namespace platform
