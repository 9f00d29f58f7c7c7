// Timers on a clock that is stepped by hand: order, intervals, what handlers may do to timers.

#include "platform/time/timers.h"

#include <gtest/gtest.h>

#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/time/events.h"
#include "support/fake_clock.h"

namespace platform {
namespace {

class TimersTest : public testing::Test {
 protected:
  /// Writes down `name` and the milliseconds since the start.
  void Write(const std::string& name) {
    log += (log.empty() ? "" : " ") + name + std::to_string(TickCount() - start);
  }
  std::function<void()> Note(const std::string& name) {
    return [this, name] { Write(name); };
  }
  std::string Log() { return std::exchange(log, {}); }
  /// Time in which no event was handled has passed.
  void Sleep(int milliseconds) { clock.Wait(milliseconds), RunDueTimers(), RunDueTimers(); }

  varek::test::FakeClock clock{{2026, 3, 10, 12, 0, 0}};
  int64_t start = TickCount();
  std::string log;
};

TEST_F(TimersTest, RunInTheOrderOfTheirMomentsAndDropMissedBeats) {
  Timer slow("slow", Note("s"), 1000);
  Timer fast("fast", Note("f"), 400);
  Timer twin("twin", Note("t"), 400);
  // All are due at once: the moment decides, not the order of making.
  Sleep(1040);
  EXPECT_EQ(Log(), "f1040 t1040 s1040");
  // A short delay keeps the series of ticks, a long one begins it anew.
  clock.Advance(960);
  EXPECT_EQ(Log(), "f1440 t1440 f1840 t1840 s2000");
  Sleep(3600'000);
  EXPECT_EQ(Log(), "f3602000 t3602000 s3602000");
}

TEST_F(TimersTest, AnIntervalRestartsOnlyWhenItChanges) {
  Timer timer("timer", Note("t"));
  EXPECT_FALSE(NextDueTick());
  timer.SetInterval(1000);
  clock.Advance(900);
  timer.SetInterval(1000);
  clock.SetNow({2026, 3, 9, 23, 59, 59});  // The wall clock moves no timer.
  clock.Advance(1000);
  timer.SetInterval(300);
  clock.Advance(300);
  EXPECT_EQ(Log(), "t1000 t2200");
  timer.SetEnabled(false);
  clock.Advance(5000);
  timer.SetEnabled(true);
  clock.Advance(200);
  timer.SetEnabled(true);
  clock.Advance(100);
  EXPECT_EQ(Log(), "t7500");
}

TEST_F(TimersTest, AHandlerThatPumpsIsNotReenteredWhileOthersRun) {
  Timer other("other", Note("o"), 400);
  const auto pump = [this] {
    Write("<");
    while (TickCount() < start + 2500) WaitForEvents(10);
    Write(">");
  };
  Timer pumping("pumping", pump, 1000);
  clock.Advance(1000);
  EXPECT_EQ(Log(), "o400 o800 <1000 o1200 o1600 o2000 o2400 >2500");
  clock.Advance(500);
  EXPECT_EQ(Log(), "o2800 <3000 >3000");
  // What the pump has served is not served again, and a tick that falls meanwhile is missed.
  const auto pumpAndTakeLong = [this] { DoEvents(), Write("a"), clock.Wait(5); };
  Timer first("first", pumpAndTakeLong, 1);
  Timer second("second", Note("b"), 100);
  Sleep(100);
  EXPECT_EQ(Log(), "b3100 a3100");
}

TEST_F(TimersTest, HandlersMayFailAndStopMakeAndDestroyTimers) {
  SetErrorSink([this](const std::string& place, int number, const std::string& text) {
    Write(place + std::to_string(number) + text + "@");
  });
  std::unique_ptr<Timer> own, victim, made, stopped;
  const auto replace = [&, text = std::string(100, 'x')] {
    own.reset();
    victim.reset();
    made = std::make_unique<Timer>("made", Note("m"), 100);
    throw RuntimeError(errors::kDeviceIo, text.substr(99));
  };
  own = std::make_unique<Timer>("own", replace, 100);
  victim = std::make_unique<Timer>("victim", Note("v"), 100);
  const auto stop = [&] {
    stopped->SetInterval(0);
    throw std::out_of_range("!");
  };
  Timer stopper("stopper", stop, 100);
  stopped = std::make_unique<Timer>("stopped", Note("stopped"), 100);
  Timer late("late", Note("late"), 100);
  clock.Advance(200);
  SetErrorSink(nullptr);
  EXPECT_EQ(Log(), "own57x@100 stopper51!@100 late100 stopper51!@200 late200 m200");
}

}  // namespace
}  // namespace platform
