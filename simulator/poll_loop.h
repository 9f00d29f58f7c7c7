// The one loop of the program: waits for descriptors and one-shot timers and calls their handlers,
// one at a time.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <vector>

#include "platform/system/descriptor.h"
#include "simulator/descriptor_io.h"

namespace simulator {

class PollLoop final {
 public:
  using Handler = std::function<void()>;
  using Clock = std::chrono::steady_clock;

  /// Calls `onReadable` while `fd` has input, has ended or has failed. The descriptor must stay
  /// open until Unwatch, and the handler must be ready to find nothing to read.
  void Watch(int fd, Handler onReadable);
  void Unwatch(int fd) { handlers_.erase(fd); }

  /// Calls `handler` once, after `delay`.
  void After(std::chrono::milliseconds delay, Handler handler);

  /// Makes SIGTERM, SIGINT and, unless it is ignored, SIGHUP end Run.
  void StopOnSignals();
  void Stop() { stopped_ = true; }

  /// Runs until Stop or a signal. `onWake` comes first at each wake-up, at least once a second.
  void Run(const Handler& onWake);

 private:
  int LongestWait() const;  ///< in milliseconds
  std::vector<int> Wait() const;
  void RunTimers();

  std::map<int, Handler> handlers_;
  std::multimap<Clock::time_point, Handler> timers_;
  platform::Descriptor signals_;
  bool stopped_ = false;
};

}  // namespace simulator
