#include "simulator/poll_loop.h"

#include <poll.h>
#include <sys/signalfd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <utility>
#include <vector>

namespace simulator {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kLongestWait = 1s;

bool Ignored(int signal) {
  struct sigaction action {};
  sigaction(signal, nullptr, &action);
  return action.sa_handler == SIG_IGN;
}

}  // namespace

void PollLoop::Watch(int fd, Handler onReadable) { handlers_[fd] = std::move(onReadable); }

void PollLoop::After(std::chrono::milliseconds delay, Handler handler) {
  timers_.emplace(Clock::now() + delay, std::move(handler));
}

void PollLoop::StopOnSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    if (signal != SIGHUP || !Ignored(signal)) sigaddset(&signals, signal);
  }
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  signals_ = platform::Descriptor(signalfd(-1, &signals, SFD_CLOEXEC));
  if (signals_.Number() < 0) ThrowSystemError("signals");
  Watch(signals_.Number(), [this] { Stop(); });
}

void PollLoop::Run(const Handler& onWake) {
  while (!stopped_) {
    const std::vector<int> ready = Wait();
    onWake();
    RunTimers();
    for (const int fd : ready) {
      // A handler before may have unwatched it; it may also be another descriptor by now, which
      // then finds nothing to read. Called as a copy, for it may unwatch itself.
      if (const auto found = handlers_.find(fd); found != handlers_.end()) Handler(found->second)();
    }
  }
}

int PollLoop::LongestWait() const {
  using std::chrono::milliseconds;
  if (timers_.empty()) return static_cast<int>(kLongestWait.count());
  const auto next = std::chrono::ceil<milliseconds>(timers_.begin()->first - Clock::now());
  return static_cast<int>(std::clamp(next, milliseconds(0), kLongestWait).count());
}

std::vector<int> PollLoop::Wait() const {
  std::vector<pollfd> polled;
  for (const auto& [fd, handler] : handlers_) polled.push_back({fd, POLLIN, 0});
  if (poll(polled.data(), polled.size(), LongestWait()) < 0 && errno != EINTR) {
    ThrowSystemError("waiting");
  }
  std::vector<int> ready;
  for (const auto& entry : polled) {
    if (entry.revents != 0) ready.push_back(entry.fd);
  }
  return ready;
}

void PollLoop::RunTimers() {
  while (!timers_.empty() && timers_.begin()->first <= Clock::now()) {
    const auto timer = timers_.extract(timers_.begin());
    timer.mapped()();
  }
}

}  // namespace simulator
