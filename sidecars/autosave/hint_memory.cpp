#include "autosave/hint_memory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/copies/runtime_folder.h"
#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"

namespace sidecar {

namespace fs = std::filesystem;

namespace {

constexpr char kSilenceFile[] = "ShowAutoSave.off";
constexpr char kSilenceText[] = "Delete this file to be told of saves at shutdown again.\n";

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string FirstLine(const std::string& path) {
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  return line;
}

/// The runtime folder may outlive a session, so what stands in it tells which one is meant.
std::string SessionIdentity() {
  std::string session = Environment("XDG_SESSION_ID");
  if (session.empty()) session = FirstLine("/proc/self/sessionid");
  return FirstLine("/proc/sys/kernel/random/boot_id") + " " + session;
}

/// Of the user; empty without a home.
std::string ConfigurationFolder() {
  const std::string folder = Environment("XDG_CONFIG_HOME");
  if (!folder.empty()) return folder + "/varek";
  const std::string home = Environment("HOME");
  return home.empty() ? "" : home + "/.config/varek";
}

std::string SilencePath(const std::string& folder) { return folder + "/" + kSilenceFile; }

}  // namespace

bool WasGivenInThisSession() {
  const std::string path = platform::RuntimePath("-autosave-hint");
  const std::string identity = SessionIdentity();
  if (FirstLine(path) == identity) return true;
  platform::IgnoreErrors([&] { platform::ReplaceFile(path, identity + "\n"); });
  return false;
}

bool IsHintSilenced() {
  return platform::IsFile(SilencePath(platform::ProgramFolder())) ||
         platform::IsFile(SilencePath(ConfigurationFolder()));
}

void SilenceHint() try {
  platform::ReplaceFile(SilencePath(platform::ProgramFolder()), kSilenceText);
} catch (const platform::RuntimeError&) {
  std::error_code error;
  fs::create_directories(ConfigurationFolder(), error);
  platform::ReplaceFile(SilencePath(ConfigurationFolder()), kSilenceText);
}

}  // namespace sidecar
