// The two countdowns, second by second on a replaced clock.

#include "records/shutdown/shutdown.h"
#include "core/unit_commands.h"

#include <stdlib.h>

#include <algorithm>

#include "core/data_center.h"
#include "core/error_list.h"
#include "core/link_record.h"
#include "platform/system/paths.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "platform/time/timers.h"
#include "records/events.h"
#include "records/files/databases.h"
#include "records/shutdown/system_countdown.h"
#include "records/shutdown/ups_countdown.h"
#include "support/monitor_fixture.h"
#include "support/serial_line.h"
#include "texts/language.h"

namespace varek {
namespace {

using Rows = std::vector<int>;

class ShutdownTest : public test::MonitorTest {
 protected:
  ShutdownTest() {
    test::InstallPictures(Folder());
    Loadlanguage(0);
    OpenDatabases();
    DataCenter.readings.OutputVoltage = 220;
    setenv("VAREK_SHUTDOWN_COMMAND", ("echo down >> " + Folder() + "/down").c_str(), 1);
  }
  ~ShutdownTest() override { setenv("VAREK_SHUTDOWN_COMMAND", "true", 1); }

  /// How often the shutdown command was started; waits for one that has just been.
  long Shutdowns(long expected) const {
    long lines = 0;
    test::PumpUntil([&] {
      const std::string path = Folder() + "/down";
      const std::string text = platform::IsFile(path) ? platform::ReadWholeFile(path) : "";
      return (lines = std::ranges::count(text, '\n')) >= expected;
    });
    return lines;
  }

  std::string SystemLabel() { return countdowns[0].time; }
  std::string UPSLabel() { return countdowns[1].time; }

  /// The poll cycle's part: takes what waits, every two seconds.
  std::vector<std::string> sent;
  platform::Timer poll{"poll",
                       [this] {
                         if (Link.PendingCommand.empty()) return;
                         sent.push_back(Link.PendingCommand);
                         Link.PendingCommand.clear();
                       },
                       2000};
};

TEST_F(ShutdownTest, SystemCountdownShowsItsTimeAndShutsDownOnce) {
  StartSystemShutdown(11);
  clock.Advance(1000);
  EXPECT_EQ(SystemLabel(), "010:59");
  clock.Advance(60'000);
  EXPECT_EQ(SystemLabel(), "09:59");
  clock.Advance(598'000);
  EXPECT_EQ(SystemLabel(), "00:01");
  EXPECT_EQ(EventRows(), Rows{});
  clock.Advance(1000);
  EXPECT_EQ(SystemLabel(), "00:00");
  clock.Advance(10'000);
  EXPECT_EQ(EventRows(), Rows{5});
  EXPECT_EQ(Shutdowns(1), 1);
  StartSystemShutdown(5);  // the machine has not gone down: asked again, it goes at once
  clock.Advance(1000);
  EXPECT_EQ(SystemLabel(), "00:00");
  EXPECT_EQ(EventRows(), (Rows{5, 5}));
  EXPECT_EQ(Shutdowns(2), 2);
}

TEST_F(ShutdownTest, ASecondRequestCanOnlyShortenTheSystemCountdown) {
  StartSystemShutdown(5);
  clock.Advance(10'000);
  StartSystemShutdown(6);
  EXPECT_EQ(SystemCountdown().Get().Seconds(), 290);
  StartSystemShutdown(1);
  EXPECT_EQ(SystemCountdown().Get().Seconds(), 60);
  countdowns[0].cancel();
  platform::DoEvents();
  EXPECT_FALSE(SystemCountdown().IsLoaded());
  EXPECT_EQ(DataCenter.FormOpen[10], kClear);
  EXPECT_EQ(Link.PendingCommand, "");  // the unit's count is not touched
  clock.Advance(120'000);
  EXPECT_EQ(EventRows(), Rows{});
}

TEST_F(ShutdownTest, AutosaveGetsTheLastTwoMinutes) {
  DataCenter.settings.AutoSaveOnShutdown = kSet;
  StartSystemShutdown(3);
  clock.Advance(60'000);
  EXPECT_TRUE(started.empty());
  clock.Advance(1000);
  EXPECT_EQ(Started("Autosave.exe").size(), 1U);
  clock.Advance(10'000);
  EXPECT_EQ(started.size(), 1U);
  programsMissing = true;  // one that fails does not keep the countdown from its end
  CloseDatabases();
  StartSystemShutdown(1);
  clock.Advance(61'000);
  EXPECT_EQ(Shutdowns(1), 1);
}

TEST_F(ShutdownTest, UPSCountdownCancelsThenSendsAndMirrorsTheCount) {
  StartUPSShutdown(1, kNoRestart);  // two pump seconds pass in here
  EXPECT_EQ(sent, std::vector<std::string>{"C"});
  clock.Advance(2100);
  EXPECT_EQ(sent, (std::vector<std::string>{"C", "S01"}));
  EXPECT_EQ(UPSLabel(), "00:57");
  clock.Advance(57'800);
  EXPECT_TRUE(UPSCountdown().IsLoaded());
  clock.Advance(200);
  EXPECT_FALSE(UPSCountdown().IsLoaded());
  EXPECT_EQ(DataCenter.FormOpen[11], kClear);
  EXPECT_EQ(EventRows(), Rows{9});
}

TEST_F(ShutdownTest, CommandTextsAndHiddenHours) {
  struct Case {
    int minutes, restart;
    const char *command, *label;
  };
  for (const Case& c : {Case{5, 9999, "S05R9999", "04:57"},
                        {90, 30, "S90R0030", "29:57"},
                        {120, 0, "S120R0000", "59:57"},
                        {1666, kNoRestart, "S1666", "45:57"}}) {
    sent.clear();
    StartUPSShutdown(c.minutes, c.restart);
    clock.Advance(2100);
    EXPECT_EQ(sent.back(), c.command);
    EXPECT_EQ(UPSLabel(), c.label) << c.command;
  }
  StartUPSShutdown(1667, kNoRestart);  // too long to be counted: the running count goes on
  clock.Advance(1000);
  EXPECT_EQ(UPSLabel(), "45:56");
}

TEST_F(ShutdownTest, TheCommandWaitsForAFreeSlot) {
  poll.SetInterval(0);
  const std::pair<int, const char*> counts[] = {{2, "S02"}, {0, "S00"}};
  for (const auto& [minutes, command] : counts) {
    DataCenter.IsConnect = ToFlag(minutes == 0);
    StartUPSShutdown(minutes, kNoRestart);
    clock.Advance(1000);
    EXPECT_EQ(Link.PendingCommand, "C");
    Link.PendingCommand.clear();
    clock.Advance(200);
    EXPECT_EQ(Link.PendingCommand, command);
    clock.Advance(120'000);  // the local count runs all the same
  }
  EXPECT_EQ(EventRows(), (Rows{9, 9}));
}

TEST_F(ShutdownTest, WithoutOutputNothingIsShutDown) {
  DataCenter.readings.OutputVoltage = 0;
  StartUPSShutdown(1, kNoRestart);
  EXPECT_FALSE(UPSCountdown().IsLoaded());
  CancelShutdowns();
  EXPECT_EQ(Link.PendingCommand, "");
}

TEST_F(ShutdownTest, ANewRequestBeginsTheCountAnew) {
  StartUPSShutdown(1, kNoRestart);
  clock.Advance(58'500);  // the old count would end in the middle of the new request
  StartUPSShutdown(5, kNoRestart);
  clock.Advance(2100);
  EXPECT_EQ(sent.back(), "S05");
  EXPECT_EQ(UPSLabel(), "04:57");
  EXPECT_EQ(EventRows(), Rows{});
}

TEST_F(ShutdownTest, ACancelInsideTheWaitsSendsNoShutdown) {
  for (const int milliseconds : {700, 1700}) {
    sent.clear();
    platform::Timer cancel(
        "cancel", [] { CancelShutdowns(); }, milliseconds);
    StartUPSShutdown(1, kNoRestart);
    cancel.SetInterval(0);
    clock.Advance(70'000);
    EXPECT_FALSE(UPSCountdown().IsLoaded());
    for (const std::string& command : sent) EXPECT_EQ(command, "C");
    EXPECT_EQ(EventRows(), Rows{});
  }
}

TEST_F(ShutdownTest, ANewerRequestInsideTheWaitsWins) {
  platform::Timer newer(
      "newer",
      [&] {
        newer.SetInterval(0);
        StartUPSShutdown(2, kNoRestart);
      },
      700);
  StartUPSShutdown(30, 9999);
  clock.Advance(4000);
  EXPECT_EQ(sent.back(), "S02");
  EXPECT_EQ(UPSLabel().substr(0, 2), "01");
}

TEST_F(ShutdownTest, MainsFailureAndBatteryLowRunBothCountsToTheirEnds) {
  Settings& settings = DataCenter.settings;
  settings.PowerFailSystemEnable = settings.PowerFailUPSEnable = kSet;
  settings.BatLowSystemEnable = settings.BatLowUPSEnable = kSet;
  settings.PowerFailSystemDelay = 1;
  settings.BatLowSystemDelay = 2;
  settings.PowerFailUPSDelay = 3;
  settings.BatLowUPSDelay = 4;
  DataCenter.flags.Utility = kSet;
  CheckUPSEvents();
  EXPECT_EQ(EventRows(), Rows{6});
  clock.Advance(60'000);
  EXPECT_EQ(sent, (std::vector<std::string>{"C", "S03"}));
  // The system goes first and takes note that the unit will follow.
  EXPECT_EQ(EventRows(), (Rows{6, 5, 9}));
  EXPECT_EQ(Shutdowns(1), 1);

  CancelShutdowns();
  sent.clear();
  DataCenter.flags.BatLow = kSet;
  CheckUPSEvents();
  clock.Advance(117'000);
  EXPECT_EQ(Shutdowns(1), 1);
  clock.Advance(3000);
  EXPECT_EQ(sent.back(), "S04");
  EXPECT_EQ(EventRows(), (Rows{6, 5, 9, 7, 5, 9}));
  EXPECT_EQ(Shutdowns(2), 2);
}

TEST_F(ShutdownTest, NothingEndsBeforeTheUPSIsTold) {
  struct Case {
    const char* what;
    bool linked;
    int pollInterval;
    int64_t due;  // milliseconds behind the two waits
  };
  for (const Case& c : {Case{"the poll cycle takes both", true, 2000, 2100},
                        {"it takes nothing", true, 0, 5000 - 2000},
                        {"there is no link", false, 0, 100}}) {
    DataCenter.IsConnect = ToFlag(c.linked);
    poll.SetInterval(0);
    poll.SetInterval(c.pollInterval);
    int64_t ended = 0;
    const int64_t start = platform::TickCount();
    AfterUPSOrder end("end", [&] { ended = platform::TickCount(); });
    platform::Timer begin(
        "begin", [&] { end.Begin(); }, 10);
    StartUPSShutdown(9, kNoRestart);
    EXPECT_EQ(ended, 0) << c.what;
    begin.SetInterval(0);
    clock.Advance(10'000);
    EXPECT_NEAR(static_cast<double>(ended - start), static_cast<double>(2000 + c.due), 150)
        << c.what;
    CancelShutdowns();
    Link.PendingCommand.clear();
  }
  int64_t ended = 0;
  AfterUPSOrder("end", [&] { ended = 1; }).Begin();
  EXPECT_EQ(ended, 1) << "nothing to wait for";
}

}  // namespace
}  // namespace varek
