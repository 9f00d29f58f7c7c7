// The toolkit's own loop, each time in a child process: the real clock drives the timers, a signal
// is the stop, and the user's language leaves numbers alone. Death tests come first in a run, so
// that no child inherits a toolkit.

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "platform/application.h"
#include "platform/clock.h"
#include "platform/events.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/timers.h"
#include "support/monitor_fixture.h"

namespace platform {
namespace {

class EventLoopDeathTest : public testing::Test {
 protected:
  EventLoopDeathTest() { std::signal(SIGCHLD, SIG_DFL); }

  int argc = 1;
  char name[5] = "test";
  char* argv[2] = {name, nullptr};
};

/// Ends with 42 when the timers keep their pace in a loop that one of them pumps, also after
/// errors, and the stop comes in from there.
[[noreturn]] void RunUntilStopped(int& argc, char** argv, int signal) {
  alarm(60);
  Application application(argc, argv);
  const int64_t start = TickCount();
  int ticks = 0, posted = 0;
  Timer ticking(
      "ticking", [&] { ++ticks; }, 20);
  Timer failing(
      "failing", [] { throw RuntimeError(errors::kInternal, "lost"); }, 20);
  const auto pump = [&] {
    Post("posted", [&] { ++posted; });
    for (const int before = ticks; ticks < before + 3;) WaitForEvents(10);
    kill(getpid(), signal);
    for (;;) WaitForEvents(10);
  };
  Timer pumping("pumping", pump, 100);
  application.OnStopSignal([&] {
    const int64_t passed = TickCount() - start;
    EndProcess(passed >= 140 && ticks <= passed / 20 && posted == 1 ? 42 : 1);
  });
  application.Run();
  EndProcess(2);
}

TEST_F(EventLoopDeathTest, TimersRunAndASignalStops) {
  for (int signal : {SIGTERM, SIGINT, SIGHUP}) {
    EXPECT_EXIT(RunUntilStopped(argc, argv, signal), testing::ExitedWithCode(42), "");
  }
}

/// The toolkit takes on the user's locale; a comma in place of the point would cut every reading.
[[noreturn]] void ReadNumbersIn(const std::string& localeFolder, int& argc, char** argv) {
  setenv("LOCPATH", localeFolder.c_str(), 1);
  setenv("LC_ALL", "de_DE.UTF-8", 1);
  Application application(argc, argv);
  const bool right = LenientNumber("220.5") == 220.5 && SingleText(220.5F) == "220.5";
  EndProcess(right ? 42 : 1);
}

TEST_F(EventLoopDeathTest, ALocaleWithACommaLeavesNumbersAlone) {
  const varek::test::TemporaryFolder folder;
  const std::string make = "localedef -i de_DE -f UTF-8 '" + folder.Path() + "/de_DE.utf8'";
  if (std::system((make + " 2>/dev/null").c_str()) != 0) GTEST_SKIP() << "no locale sources";
  EXPECT_EXIT(ReadNumbersIn(folder.Path(), argc, argv), testing::ExitedWithCode(42), "");
}

}  // namespace
}  // namespace platform
