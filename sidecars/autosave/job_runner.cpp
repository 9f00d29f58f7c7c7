#include "autosave/job_runner.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <optional>

#include "platform/system/spawn_attributes.h"
#include "platform/time/clock.h"

extern char** environ;

namespace sidecar {

namespace {

constexpr int64_t kGraceMilliseconds = 2'000;
constexpr int64_t kDyingMilliseconds = 1'000;

sigset_t ChildSignal() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGCHLD);
  return set;
}

/// Nothing to read.
class NoInput final {
 public:
  NoInput() {
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  }
  ~NoInput() { posix_spawn_file_actions_destroy(&actions); }
  NoInput(const NoInput&) = delete;
  NoInput& operator=(const NoInput&) = delete;

  posix_spawn_file_actions_t actions;
};

/// The error's number, 0 when `child` runs.
int Start(std::string path, pid_t& child) {
  char* const arguments[] = {path.data(), nullptr};
  const platform::SpawnAttributes ownGroup(POSIX_SPAWN_SETPGROUP);
  const NoInput input;
  return posix_spawn(&child, path.c_str(), &input.actions, ownGroup.Get(), arguments, environ);
}

/// The status of `child` once it has ended, or nothing after `milliseconds`.
std::optional<int> AwaitEnd(pid_t child, int64_t milliseconds) {
  const sigset_t signal = ChildSignal();
  const int64_t end = platform::TickCount() + milliseconds;
  int status = 0;
  while (waitpid(child, &status, WNOHANG) != child) {
    const int64_t left = end - platform::TickCount();
    if (left <= 0) return std::nullopt;
    const timespec rest{left / 1000, left % 1000 * 1'000'000};
    sigtimedwait(&signal, nullptr, &rest);
  }
  return status;
}

/// The child is not waited for before the second signal, so that no other group can have got its
/// number. One that hangs in the system is left to it.
void StopGroup(pid_t child) {
  kill(-child, SIGTERM);
  usleep(kGraceMilliseconds * 1'000);
  kill(-child, SIGKILL);
  AwaitEnd(child, kDyingMilliseconds);
}

std::string EndInWords(int status) {
  if (WIFSIGNALED(status)) return "ended by signal " + std::to_string(WTERMSIG(status));
  return "ended with status " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

void PrepareJobs() {
  // Who starts us may ignore the signal; the system would then clear ended programs away unseen.
  std::signal(SIGCHLD, SIG_DFL);
  // The service keeps what it writes to itself; what a job saves is for the person who gets it.
  umask(S_IWGRP | S_IWOTH);
  const sigset_t signal = ChildSignal();
  sigprocmask(SIG_BLOCK, &signal, nullptr);
}

std::string RunJob(const std::string& path, int64_t limit) {
  pid_t child = 0;
  if (const int error = Start(path, child)) {
    return "can't be started: " + std::string(std::strerror(error));
  }
  if (const auto status = AwaitEnd(child, limit)) return EndInWords(*status);
  StopGroup(child);
  return "stopped, it took longer than " + std::to_string((limit + 999) / 1000) + " s";
}

}  // namespace sidecar
