#include "platform/copies/runtime_folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "platform/system/paths.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

/// A folder that only this user can use: that of the session, else one of our own. For root it is
/// always the same, however it became root: a service has no session, and must be found. A system
/// of its own (VAREK_ROOT) goes by the environment. Empty when there is none that can be trusted.
std::string RuntimeFolder() {
  const uid_t user = getuid();
  const bool bySession = user != 0 || std::getenv("VAREK_ROOT");
  const char* session = std::getenv("XDG_RUNTIME_DIR");
  if (bySession && session && *session) return session;
  const std::string folder = user == 0 ? "/run/varek" : "/tmp/varek-" + std::to_string(user);
  mkdir(folder.c_str(), 0700);
  struct stat info {};
  const bool ours = lstat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode) &&
                    info.st_uid == user && (info.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  return ours ? folder : "";
}

/// FNV-1a: a short name that any two folders are most unlikely to share.
std::string FolderKey() {
  uint64_t hash = 14695981039346656037U;
  std::error_code error;
  for (const char c : fs::weakly_canonical(ProgramFolder(), error).string()) {
    hash = (hash ^ static_cast<uint8_t>(c)) * 1099511628211U;
  }
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
  return text;
}

}  // namespace

std::string RuntimePath(const std::string& suffix) {
  const std::string folder = RuntimeFolder();
  return folder.empty() ? "" : folder + "/varek-" + FolderKey() + suffix;
}

RuntimeLock::RuntimeLock(const std::string& suffix)
    : FileLock([suffix] {
        constexpr int kHow = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW;
        return open(RuntimePath(suffix).c_str(), kHow, 0600);
      }) {}

}  // namespace platform
