#include "platform/system/process.h"

#include <spawn.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <utility>
#include <vector>

#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "platform/system/spawn_attributes.h"
#include "platform/text/text.h"

extern char** environ;

namespace platform {

namespace {

ProgramStarter& Replacement() {
  static ProgramStarter starter;
  return starter;
}

pid_t Spawn(std::vector<std::string> arguments) {
  // Nobody waits for these programs: the system clears them away when they end.
  std::signal(SIGCHLD, SIG_IGN);
  std::vector<char*> pointers;
  pointers.reserve(arguments.size() + 1);
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  // It outlives a Ctrl-C that is meant for the monitor.
  const SpawnAttributes attributes(POSIX_SPAWN_SETSID);
  pid_t child = 0;
  const int error =
      posix_spawn(&child, pointers[0], nullptr, attributes.Get(), pointers.data(), environ);
  if (error == ENOENT) throw RuntimeError(errors::kFileNotFound, arguments[0] + ": not found");
  if (error != 0) {
    throw RuntimeError(errors::kPathAccess, arguments[0] + ": " + std::strerror(error));
  }
  return child;
}

std::string FindProgram(const std::string& program) {
  std::string path = program;
  std::ranges::replace(path, '\\', '/');
  if (IsFile(path)) return path;
  const std::filesystem::path name(path);
  if (SameIgnoringCase(name.extension().string(), ".exe")) {
    std::string bare = (name.parent_path() / name.stem()).string();
    if (IsFile(bare)) return bare;
  }
  throw RuntimeError(errors::kFileNotFound, path + ": no such program");
}

}  // namespace

int StartProgram(const std::string& program, const std::string& rest, WindowStyle style) {
  if (Replacement()) {
    Replacement()(program, rest, style);
    return 0;
  }
  std::vector<std::string> arguments{FindProgram(program)};
  if (!rest.empty()) arguments.push_back(rest);
  return Spawn(std::move(arguments));
}

bool IsRunning(int process) { return process > 0 && kill(process, 0) == 0; }

void StartCommandLine(const std::string& commandLine) { Spawn({"/bin/sh", "-c", commandLine}); }

void ReplaceProgramStarter(ProgramStarter starter) { Replacement() = std::move(starter); }

}  // namespace platform
