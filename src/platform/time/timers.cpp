#include "platform/time/timers.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/errors/guard.h"
#include "platform/time/clock.h"

namespace platform {

struct TimerState {
  std::string place;
  std::function<void()> handler;
  int interval = 0;
  bool enabled = true;
  bool alive = true;
  bool running = false;
  int64_t due = 0;

  bool Ticks() const { return alive && enabled && interval > 0; }
};

namespace {

using StatePointer = std::shared_ptr<TimerState>;

std::vector<StatePointer>& Queue() {
  static std::vector<StatePointer> queue;
  return queue;
}

std::function<void()>& Driver() {
  static std::function<void()> driver;
  return driver;
}

void Rearm() {
  if (Driver()) Driver()();
}

void BeginInterval(TimerState& state) {
  state.due = TickCount() + state.interval;
  Rearm();
}

/// The next tick comes an interval after the last one was due; ticks that were missed are dropped.
void ScheduleNextTick(TimerState& state, int64_t now) {
  state.due += state.interval;
  if (state.due <= now) state.due = now + state.interval;
}

std::vector<StatePointer> DueTimers(int64_t now) {
  std::vector<StatePointer> due;
  for (const StatePointer& state : Queue()) {
    if (state->Ticks() && state->due <= now) due.push_back(state);
  }
  std::stable_sort(due.begin(), due.end(),
                   [](const StatePointer& a, const StatePointer& b) { return a->due < b->due; });
  return due;
}

void Fire(TimerState& state) {
  struct Running {
    explicit Running(TimerState& timer) : state(timer) { state.running = true; }
    ~Running() { state.running = false; }
    TimerState& state;
  } running(state);
  Guarded(state.place, state.handler);
  const int64_t now = TickCount();
  if (state.due <= now) ScheduleNextTick(state, now);  // It fell while the handler ran.
}

}  // namespace

Timer::Timer(std::string place, std::function<void()> handler, int interval)
    : state_(std::make_shared<TimerState>()) {
  state_->place = std::move(place);
  state_->handler = std::move(handler);
  Queue().push_back(state_);
  SetInterval(interval);
}

Timer::~Timer() {
  state_->alive = false;
  std::erase(Queue(), state_);
}

int Timer::Interval() const { return state_->interval; }

void Timer::SetInterval(int milliseconds) {
  if (milliseconds == state_->interval) return;
  state_->interval = milliseconds;
  BeginInterval(*state_);
}

bool Timer::Enabled() const { return state_->enabled; }

void Timer::SetEnabled(bool enabled) {
  if (enabled == state_->enabled) return;
  state_->enabled = enabled;
  BeginInterval(*state_);
}

void RunDueTimers() {
  const int64_t now = TickCount();
  for (const StatePointer& state : DueTimers(now)) {
    // An earlier handler, or a loop that it pumped, may have stopped or served this one.
    if (!state->Ticks() || state->due > now) continue;
    ScheduleNextTick(*state, now);
    Rearm();
    if (!state->running) Fire(*state);
  }
  Rearm();
}

std::optional<int64_t> NextDueTick() {
  std::optional<int64_t> next;
  for (const StatePointer& state : Queue()) {
    if (state->Ticks() && (!next || state->due < *next)) next = state->due;
  }
  return next;
}

void SetTimerDriver(std::function<void()> rearm) {
  Driver() = std::move(rearm);
  Rearm();
}

}  // namespace platform
