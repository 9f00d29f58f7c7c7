// A clock that stands still until a test moves it. Moving it runs every timer whose moment comes,
// one after the other at its own moment, so that hours of the monitor pass in milliseconds.
#pragma once

#include "platform/time/clock.h"

namespace varek::test {

class FakeClock final : public platform::Clock {
 public:
  /// Takes the place of the machine's clock for as long as it lives.
  explicit FakeClock(const platform::DateTime& start);
  ~FakeClock() override;

  platform::DateTime Now() override;
  int64_t TickCount() override { return ticks_; }
  /// Time passes in a pump loop; the timers run from there.
  void Wait(int milliseconds) override { ticks_ += milliseconds; }

  /// Moves on, running the timers that fall due on the way.
  void Advance(int64_t milliseconds);
  /// Sets the wall clock, forward or back, without any time passing.
  void SetNow(const platform::DateTime& now);

 private:
  int64_t ticks_ = 1'000'000;
  int64_t secondsAtTickZero_ = 0;
};

}  // namespace varek::test
