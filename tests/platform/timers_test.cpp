// Timers on a clock that is stepped by hand: order, beat, and what handlers may do to timers.

#include "platform/timers.h"

#include <gtest/gtest.h>

#include "platform/events.h"
#include "platform/guard.h"
#include "platform/runtime_error.h"
#include "support/fake_clock.h"

namespace platform {
namespace {

class TimersTest : public testing::Test {
 protected:
  ~TimersTest() override { SetErrorSink(nullptr); }

  /// Writes down `name` and the milliseconds since the start.
  void Write(const std::string& name) {
    log += (log.empty() ? "" : " ") + name + std::to_string(TickCount() - start);
  }
  std::function<void()> Note(const std::string& name) {
    return [this, name] { Write(name); };
  }
  /// What has been written down since the last call.
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
  clock.Advance(1000);
  EXPECT_EQ(Log(), "f400 t400 f800 t800 s1000");
  Sleep(199);
  EXPECT_EQ(Log(), "");
  // All are due at once: the moment decides, not the order of making.
  Sleep(841);
  EXPECT_EQ(Log(), "f2040 t2040 s2040");
  // A short delay keeps the beat, a long one begins it anew.
  clock.Advance(960);
  EXPECT_EQ(Log(), "f2440 t2440 f2840 t2840 s3000");
  Sleep(3600'000);
  EXPECT_EQ(Log(), "f3603000 t3603000 s3603000");
  EXPECT_EQ(NextDueTick(), TickCount() + 400);
}

TEST_F(TimersTest, AnIntervalRestartsOnlyWhenItChanges) {
  Timer timer("timer", Note("t"));
  EXPECT_FALSE(NextDueTick());
  timer.SetInterval(1000);
  clock.Advance(900);
  timer.SetInterval(1000);
  clock.Advance(1000);
  timer.SetInterval(300);
  clock.Advance(300);
  EXPECT_EQ(Log(), "t1000 t2200");
  timer.SetInterval(0);
  clock.Advance(5000);
  timer.SetInterval(1000);
  timer.SetEnabled(false);
  clock.Advance(1500);
  EXPECT_EQ(Log(), "");
  timer.SetEnabled(true);
  clock.Advance(400);
  timer.SetEnabled(true);
  clock.SetNow({2026, 3, 9, 23, 59, 59});  // The wall clock moves no timer.
  clock.Advance(600);
  EXPECT_EQ(Log(), "t9700");
  EXPECT_EQ(FormatTime(Now()), "23:59:59");
  EXPECT_EQ(FormatDayName(Now()) + FormatStored(Now()), "202603092026-03-09 23:59:59");
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
  // The pump serves a timer that is due at the same moment, and it is not served again.
  Timer first(
      "first", [this] { DoEvents(), Write("a"); }, 1);
  Timer second("second", Note("b"), 1);
  Sleep(1);
  EXPECT_EQ(Log(), "b3001 a3001");
}

TEST_F(TimersTest, HandlersMayStopMakeAndDestroyTimers) {
  std::unique_ptr<Timer> own, victim, made;
  Timer* next = nullptr;
  const auto replace = [&, text = std::string(100, 'x')] {
    own.reset();
    victim.reset();
    made = std::make_unique<Timer>("made", Note("m"), 100);
    Write("own" + text.substr(99));
    throw RuntimeError(errors::kDeviceIo, "after its own end");
  };
  own = std::make_unique<Timer>("own", replace, 100);
  victim = std::make_unique<Timer>("victim", Note("v"), 100);
  Timer stopper(
      "stopper", [&] { next->SetInterval(0), Write("stopper"); }, 100);
  Timer stopped("stopped", Note("stopped"), 100);
  next = &stopped;
  Timer late("late", Note("late"), 100);
  clock.Advance(200);
  EXPECT_EQ(Log(), "ownx100 stopper100 late100 stopper200 late200 m200");
}

TEST_F(TimersTest, AnErrorIsReportedAndTheNextTickComes) {
  std::string reports;
  SetErrorSink([&](const std::string& place, int number, const std::string& text) {
    reports += place + ":" + std::to_string(number) + ":" + text + " ";
  });
  int ticks = 0;
  const auto fail = [&] {
    if (++ticks == 1) throw RuntimeError(errors::kPortNotOpen, "closed");
    if (ticks == 2) throw std::out_of_range("range");
  };
  Timer timer("COMtime_Timer", fail, 500);
  Timer other("other", Note("o"), 500);
  clock.Advance(1500);
  EXPECT_EQ(ticks, 3);
  EXPECT_EQ(reports, "COMtime_Timer:8018:closed COMtime_Timer:51:range ");
  EXPECT_EQ(Log(), "o500 o1000 o1500");
}

}  // namespace
}  // namespace platform
