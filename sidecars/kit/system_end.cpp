#include "kit/system_end.h"

#include <unistd.h>

#include <csignal>
#include <ctime>

namespace sidecar {

namespace {

/// A transfer that is to be left notices it within a second, and the log takes its time: so both
/// together stay below the limit behind which the process is ended.
constexpr time_t kLastSeconds = 3;
constexpr unsigned kLimit = 5;

timespec announcedAt{};
volatile std::sig_atomic_t announced = 0;

extern "C" void NoteEnd(int) {
  if (announced) return;
  clock_gettime(CLOCK_MONOTONIC, &announcedAt);
  alarm(kLimit);
  announced = 1;
}

}  // namespace

void ExpectSystemEnd() {
  struct sigaction action {};
  action.sa_handler = NoteEnd;
  sigaddset(&action.sa_mask, SIGTERM);
  sigaddset(&action.sa_mask, SIGHUP);
  sigaction(SIGTERM, &action, nullptr);
  sigaction(SIGHUP, &action, nullptr);
}

bool SystemEnds() { return announced; }

bool LastSecondsAreOver() {
  if (!announced) return false;
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  const time_t seconds = now.tv_sec - announcedAt.tv_sec;
  return seconds > kLastSeconds || (seconds == kLastSeconds && now.tv_nsec >= announcedAt.tv_nsec);
}

/// By the second: a signal between the check and the sleep is seen by the next check.
bool WaitUnlessSystemEnds(int seconds) {
  for (; seconds > 0 && !announced; --seconds) sleep(1);
  return !announced;
}

}  // namespace sidecar
