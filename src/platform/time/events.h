// The message pump: what lets other handlers run inside a loop that waits.
#pragma once

#include <functional>
#include <string>

namespace platform {

/// What delivers events: the toolkit's loop, handed in by the application. Without one, timers run
/// only on a replaced clock, and posted actions wait for DoEvents.
class EventLoop {
 public:
  virtual ~EventLoop() = default;
  virtual void Process() = 0;
  /// Process after sleeping until the next event, at most `milliseconds`.
  virtual void Wait(int milliseconds) = 0;
  virtual void Post(std::function<void()> action) = 0;
};

/// nullptr takes the loop out again. It must outlive its use.
void SetEventLoop(EventLoop* loop);

/// Lets every event that is waiting be handled, and returns at once when there is none.
void DoEvents();

/// Sleeps until the next event, but no longer than `milliseconds`, and handles what has come. For
/// loops that wait on the clock, so that waiting costs no processor time.
void WaitForEvents(int milliseconds);

/// DoEvents for a loop that must see every millisecond and so never sleeps. A replaced clock moves
/// on by one.
void SpinEvents();

/// Runs `action` from the event loop, after the present handler has ended; guarded as `place`.
void Post(std::string place, std::function<void()> action);

}  // namespace platform
