#include "support/fake_clock.h"

#include <algorithm>
#include <ctime>

#include "platform/time/events.h"
#include "platform/time/timers.h"

namespace varek::test {

namespace {

platform::DateTime FromSeconds(int64_t seconds) {
  const time_t time = seconds;
  tm parts{};
  gmtime_r(&time, &parts);
  return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
          parts.tm_hour,        parts.tm_min,     parts.tm_sec};
}

}  // namespace

FakeClock::FakeClock(const platform::DateTime& start) {
  SetNow(start);
  platform::ReplaceClock(this);
}

FakeClock::~FakeClock() { platform::ReplaceClock(nullptr); }

platform::DateTime FakeClock::Now() { return FromSeconds(secondsAtTickZero_ + ticks_ / 1000); }

void FakeClock::SetNow(const platform::DateTime& now) {
  secondsAtTickZero_ = platform::SecondsOf(now) - ticks_ / 1000;
}

void FakeClock::Advance(int64_t milliseconds) {
  const int64_t end = ticks_ + milliseconds;
  while (ticks_ < end) {
    const int64_t next = platform::NextDueTick().value_or(end);
    ticks_ = std::max(ticks_, std::min(next, end));
    platform::DoEvents();
    // A handler that waits moves the clock itself; one whose timer is busy leaves nothing to run.
    if (ticks_ < end && platform::NextDueTick().value_or(end) <= ticks_) ++ticks_;
  }
}

}  // namespace varek::test
