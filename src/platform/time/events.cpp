#include "platform/time/events.h"

#include <deque>
#include <utility>

#include "platform/errors/guard.h"
#include "platform/time/clock.h"
#include "platform/time/timers.h"

namespace platform {

namespace {

EventLoop* eventLoop = nullptr;

/// What was posted while there was no loop.
std::deque<std::function<void()>>& Waiting() {
  static std::deque<std::function<void()>> waiting;
  return waiting;
}

void RunWaiting() {
  while (!Waiting().empty()) {
    const auto action = std::move(Waiting().front());
    Waiting().pop_front();
    action();
  }
}

}  // namespace

void SetEventLoop(EventLoop* loop) { eventLoop = loop; }

void DoEvents() {
  if (ReplacedClock()) RunDueTimers();
  RunWaiting();
  if (eventLoop) eventLoop->Process();
}

void WaitForEvents(int milliseconds) {
  if (Clock* clock = ReplacedClock()) {
    clock->Wait(milliseconds);
    return DoEvents();
  }
  RunWaiting();
  if (eventLoop) eventLoop->Wait(milliseconds);
}

void SpinEvents() {
  if (Clock* clock = ReplacedClock()) clock->Wait(1);
  DoEvents();
}

void Post(std::string place, std::function<void()> action) {
  auto guarded = [place = std::move(place), action = std::move(action)] { Guarded(place, action); };
  if (eventLoop) return eventLoop->Post(std::move(guarded));
  Waiting().push_back(std::move(guarded));
}

}  // namespace platform
