// Timers on one thread. Every timer of the program stands in one queue, which the event loop
// drives by the real clock and a test drives by a replaced one.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace platform {

struct TimerState;

/// A repeating timer. Its handler is entered through the guard under the name `place`, never
/// re-enters itself (ticks that fall while it runs are dropped), and may destroy the timer.
class Timer final {
 public:
  /// `interval` in milliseconds; 0 is stopped.
  Timer(std::string place, std::function<void()> handler, int interval = 0);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  int Interval() const;
  /// Starts, changes or (with 0) stops the timer. The interval that it already has does not
  /// restart it.
  void SetInterval(int milliseconds);

  bool Enabled() const;
  /// A disabled timer keeps its interval; enabling it begins a new one.
  void SetEnabled(bool enabled);

 private:
  std::shared_ptr<TimerState> state_;
};

/// Runs each timer whose moment has come, in the order of their moments.
void RunDueTimers();

/// Tick count at which the next timer is due, or nothing when none runs.
std::optional<int64_t> NextDueTick();

/// Called whenever NextDueTick may have changed; the event loop arms its wake-up there.
void SetTimerDriver(std::function<void()> rearm);

}  // namespace platform
