#include "records/files/clock_jump.h"

#include <cstdlib>

#include "platform/time/clock.h"

namespace varek {

namespace {

constexpr int64_t kJumpMilliseconds = 3'600'000;
constexpr int64_t kSettleMilliseconds = 600'000;

int64_t Lead() { return platform::SecondsOf(platform::Now()) * 1000 - platform::TickCount(); }

}  // namespace

void ClockJump::Trust() {
  settledLead_ = Lead();
  since_.reset();
}

void ClockJump::Look() {
  const int64_t lead = Lead();
  if (lead - settledLead_ <= kJumpMilliseconds) return Trust();
  const int64_t now = platform::TickCount();
  if (!since_ || std::abs(lead - jumpedLead_) > kJumpMilliseconds) {
    since_ = now;
    jumpedLead_ = lead;
  } else if (now - *since_ >= kSettleMilliseconds) {
    Trust();
  }
}

}  // namespace varek
