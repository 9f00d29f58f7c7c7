// The twelve events: latches, order, what a failure stops and what it does not.

#include "records/events.h"
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
  const struct {
    Flag& flag;
    Flag raised, fallen;
    Rows afterTwoRounds;
  } cases[] = {
      {DataCenter.flags.Utility, kSet, kClear, {6, 8, 6, 8}},
      {DataCenter.flags.BatLow, kSet, kClear, {7, 7}},
      {DataCenter.flags.TestProgress, kSet, kClear, {12, 12}},
      {DataCenter.flags.UPSFailed, kSet, kClear, {11, 11}},
      {DataCenter.readings.LoadPercent, 101, 100, {10, 10}},
  };
  Rows expected;
  for (const auto& c : cases) {
    for (const Flag value : {c.raised, c.fallen, c.raised, c.fallen}) {
      c.flag = value;
      CheckUPSEvents();
      CheckUPSEvents();
    }
    expected.insert(expected.end(), c.afterTwoRounds.begin(), c.afterTwoRounds.end());
    EXPECT_EQ(EventRows(), expected);
  }
}

TEST_F(EventsTest, OneTickWritesItsEventsInOrderAndShowsThoseThatHaveAPopup) {
  auto& flags = DataCenter.flags;
  for (const Flag popup : {kClear, kSet}) {
    CheckUPSEvents();
    started.clear();
    DataCenter.settings.EventPopup = popup;
    flags.Utility = flags.BatLow = flags.TestProgress = flags.UPSFailed = kSet;
    DataCenter.readings.LoadPercent = 120;
    CheckUPSEvents();
    flags = {};
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

TEST_F(EventsTest, OnlyWithMainsTheBatterysRecoveryCancels) {
  DataCenter.settings.BatLowSystemEnable = kSet;
  DataCenter.settings.BatLowSystemDelay = 5;
  DataCenter.flags.Utility = kSet;
  for (const Flag low : {kSet, kClear, kSet}) {
    DataCenter.flags.BatLow = low;
    CheckUPSEvents();
    EXPECT_TRUE(SystemCountdown().IsLoaded());
  }
  EXPECT_EQ(EventRows(), (Rows{6, 7, 7}));
  Link.PendingCommand.clear();
  DataCenter.flags.Utility = kClear;  // mains return while the battery is still low
  CheckUPSEvents();
  EXPECT_FALSE(SystemCountdown().IsLoaded());
  EXPECT_EQ(Link.PendingCommand, "C");
  EXPECT_EQ(EventRows(), (Rows{6, 7, 7, 8}));
  for (const Flag low : {kClear, kSet, kClear}) {
    Link.PendingCommand.clear();
    DataCenter.flags.BatLow = low;
    CheckUPSEvents();
    EXPECT_EQ(SystemCountdown().IsLoaded(), low != kClear);
  }
  EXPECT_EQ(Link.PendingCommand, "C");
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
