// The twelve events: latches, order, what a failure stops and what it does not.

#include "records/events.h"
#include "core/debug_lines.h"
#include "records/notices/event_record.h"

#include "core/data_center.h"
#include "core/link_record.h"
#include "records/files/databases.h"
#include "records/shutdown/system_countdown.h"
#include "records/shutdown/ups_countdown.h"
#include "support/monitor_fixture.h"
#include "texts/language.h"

namespace varek {
namespace {

using Rows = std::vector<int>;

class EventsTest : public test::MonitorTest {
 protected:
  EventsTest() {
    test::InstallPictures(Folder());
    Loadlanguage(0);
    OpenDatabases();
  }
};

TEST_F(EventsTest, EachFlagRaisesItsEventOnceUntilItFalls) {
  struct Case {
    Flag* flag;
    int raised;
    Rows afterTwoRounds;
  };
  const Case cases[] = {
      {&DataCenter.flags.Utility, 6, {6, 8, 6, 8}},     {&DataCenter.flags.BatLow, 7, {7, 7}},
      {&DataCenter.flags.TestProgress, 12, {12, 12}},   {&DataCenter.flags.UPSFailed, 11, {11, 11}},
      {&DataCenter.readings.LoadPercent, 10, {10, 10}},
  };
  Rows expected;
  for (const Case& c : cases) {
    for (int round = 0; round < 2; ++round) {
      *c.flag = c.flag == &DataCenter.readings.LoadPercent ? 101 : kSet;
      CheckUPSEvents();
      CheckUPSEvents();
      *c.flag = c.flag == &DataCenter.readings.LoadPercent ? 100 : kClear;
      CheckUPSEvents();
      CheckUPSEvents();
    }
    expected.insert(expected.end(), c.afterTwoRounds.begin(), c.afterTwoRounds.end());
    EXPECT_EQ(EventRows(), expected) << c.raised;
  }
}

TEST_F(EventsTest, OneTickWritesItsEventsInOrderAndShowsThoseThatHaveAPopup) {
  for (const Flag popup : {kClear, kSet}) {
    CheckUPSEvents();
    started.clear();
    DataCenter.settings.EventPopup = popup;
    DataCenter.flags.Utility = DataCenter.flags.BatLow = DataCenter.flags.TestProgress =
        DataCenter.flags.UPSFailed = kSet;
    DataCenter.readings.LoadPercent = 120;
    CheckUPSEvents();
    DataCenter.flags.Utility = DataCenter.flags.BatLow = DataCenter.flags.TestProgress =
        DataCenter.flags.UPSFailed = kClear;
    DataCenter.readings.LoadPercent = 0;
    std::string shown;
    for (const test::StartedProgram& program : started) shown += program.name + program.rest + "\n";
    EXPECT_EQ(shown, popup ? "alert.exeUPSMains power failed\nalert.exeUPSUPS battery low\n"
                             "alert.exeUPSUPS fault\nalert.exeUPSUPS overload\n"
                           : "");
  }
  EXPECT_EQ(EventRows(), (Rows{6, 7, 12, 11, 10, 8, 6, 7, 12, 11, 10}));
}

TEST_F(EventsTest, AMissingMailProgramDoesNotKeepTheTextMessage) {
  DataCenter.settings.MailEventEnable.fill(kSet);
  DataCenter.settings.SmsEventEnable.fill(kSet);
  missingProgram = "mailto.exe";
  EventLinkUp();
  EXPECT_EQ(Started("SMSTO.exe").size(), 1U);
}

TEST_F(EventsTest, DebugLinesHoldTheTenNewest) {
  for (int i = 0; i < 12; ++i) AddEventLine("line " + std::to_string(i));
  EXPECT_EQ(DataCenter.DebugLines[0], "2026/03/10 12:00:00  line 11");
  EXPECT_EQ(DataCenter.DebugLines[9], "2026/03/10 12:00:00  line 2");
}

TEST_F(EventsTest, BatteryThatRecoversWithoutMainsCancelsNothing) {
  DataCenter.settings.BatLowSystemEnable = kSet;
  DataCenter.settings.BatLowSystemDelay = 5;
  DataCenter.flags.Utility = DataCenter.flags.BatLow = kSet;
  CheckUPSEvents();
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  DataCenter.flags.BatLow = kClear;
  CheckUPSEvents();
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  DataCenter.flags.BatLow = kSet;
  CheckUPSEvents();
  EXPECT_EQ(EventRows(), (Rows{6, 7, 7}));
  Link.PendingCommand.clear();
  DataCenter.flags.Utility = kClear;  // mains return while the battery is still low
  CheckUPSEvents();
  EXPECT_FALSE(SystemCountdown().IsLoaded());
  EXPECT_EQ(Link.PendingCommand, "C");
  EXPECT_EQ(EventRows(), (Rows{6, 7, 7, 8}));
}

TEST_F(EventsTest, EachSwitchStartsItsOwnCountdown) {
  DataCenter.readings.OutputVoltage = 220;
  Settings& settings = DataCenter.settings;
  Flag &mainsFailed = DataCenter.flags.Utility, &batteryLow = DataCenter.flags.BatLow;
  const struct {
    Flag& enabled;
    Flag& cause;
    bool system;
  } cases[] = {{settings.PowerFailSystemEnable, mainsFailed, true},
               {settings.PowerFailUPSEnable, mainsFailed, false},
               {settings.BatLowSystemEnable, batteryLow, true},
               {settings.BatLowUPSEnable, batteryLow, false}};
  for (const auto& c : cases) {
    c.enabled = kSet;
    for (Flag* cause : {&mainsFailed, &batteryLow}) {
      *cause = kSet;
      CheckUPSEvents();
      EXPECT_EQ(SystemCountdown().IsLoaded(), c.system && cause == &c.cause);
      EXPECT_EQ(UPSCountdown().IsLoaded(), !c.system && cause == &c.cause);
      *cause = kClear;
      CheckUPSEvents();
    }
    c.enabled = kClear;
  }
}

TEST_F(EventsTest, BatteryLowThatEndsOnMainsCancels) {
  DataCenter.settings.BatLowSystemEnable = DataCenter.flags.BatLow = kSet;
  DataCenter.settings.BatLowSystemDelay = 5;
  CheckUPSEvents();
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  DataCenter.flags.BatLow = kClear;
  CheckUPSEvents();
  EXPECT_FALSE(SystemCountdown().IsLoaded());
  EXPECT_EQ(Link.PendingCommand, "C");
}

TEST_F(EventsTest, AFailedRowStopsNothingButEventsFourAndSix) {
  DataCenter.settings.MailEventEnable.fill(kSet);
  DataCenter.settings.EventPopup = DataCenter.settings.PowerFailSystemEnable = kSet;
  DataCenter.settings.PowerFailSystemDelay = 3;
  DataCenter.ratings.RatingVoltage = 220;
  CloseDatabases();

  EventProgramStart();
  EXPECT_EQ(Started("mailto.exe").size(), 1U);
  EXPECT_NE(DataCenter.DebugLines[0], "");

  EXPECT_THROW(EventLinkLost(), std::exception);
  EXPECT_EQ(Started("mailto.exe").size(), 1U);

  DataCenter.flags.Utility = kSet;
  EXPECT_THROW(CheckUPSEvents(), std::exception);
  EXPECT_EQ(DataCenter.latches.PowerFailLatched, kSet);
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  clock.Advance(10'000);
  CheckUPSEvents();  // the latch holds: no second start, and no second failure
  EXPECT_EQ(SystemCountdown().Get().Seconds(), 170);
  EXPECT_EQ(Started("mailto.exe").size(), 1U);
}

TEST_F(EventsTest, AMissingPopupProgramLosesTheRowOfSixButNotTheCountdown) {
  DataCenter.settings.EventPopup = DataCenter.settings.PowerFailSystemEnable = kSet;
  DataCenter.flags.Utility = DataCenter.flags.UPSFailed = kSet;
  programsMissing = true;
  EXPECT_THROW(CheckUPSEvents(), std::exception);
  EXPECT_EQ(DataCenter.latches.PowerFailLatched, kSet);
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  CheckUPSEvents();
  EXPECT_EQ(EventRows(), Rows{11});  // a fault is written although its pop-up failed
}

}  // namespace
}  // namespace varek
