// The twelve events: latches, order, what a failure stops and what it does not, and the command
// lines of the senders.

#include "records/events.h"

#include "core/data_center.h"
#include "core/error_list.h"
#include "core/link_record.h"
#include "platform/guard.h"
#include "platform/system.h"
#include "records/databases.h"
#include "records/shutdown.h"
#include "records/system_countdown.h"
#include "records/ups_countdown.h"
#include "settings/language.h"
#include "support/monitor_fixture.h"

namespace varek {
namespace {

using Rows = std::vector<int>;

class EventsTest : public test::MonitorTest {
 protected:
  EventsTest() {
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
      {&DataCenter.Utility, 6, {6, 8, 6, 8}},   {&DataCenter.BatLow, 7, {7, 7}},
      {&DataCenter.TestProgress, 12, {12, 12}}, {&DataCenter.UPSFailed, 11, {11, 11}},
      {&DataCenter.LoadPercent, 10, {10, 10}},
  };
  Rows expected;
  for (const Case& c : cases) {
    for (int round = 0; round < 2; ++round) {
      *c.flag = c.flag == &DataCenter.LoadPercent ? 101 : kSet;
      CheckUPSEvents();
      CheckUPSEvents();
      *c.flag = c.flag == &DataCenter.LoadPercent ? 100 : kClear;
      CheckUPSEvents();
      CheckUPSEvents();
    }
    expected.insert(expected.end(), c.afterTwoRounds.begin(), c.afterTwoRounds.end());
    EXPECT_EQ(EventRows(), expected) << c.raised;
  }
}

TEST_F(EventsTest, OneTickWritesItsEventsInOrder) {
  DataCenter.Utility = DataCenter.BatLow = DataCenter.TestProgress = DataCenter.UPSFailed = kSet;
  DataCenter.LoadPercent = 120;
  CheckUPSEvents();
  EXPECT_EQ(EventRows(), (Rows{6, 7, 12, 11, 10}));
}

TEST_F(EventsTest, DebugLinesHoldTheTenNewest) {
  for (int i = 0; i < 12; ++i) AddEventLine("line " + std::to_string(i));
  EXPECT_EQ(DataCenter.DebugLines[0], "2026/03/10 12:00:00  line 11");
  EXPECT_EQ(DataCenter.DebugLines[9], "2026/03/10 12:00:00  line 2");
}

TEST_F(EventsTest, BatteryThatRecoversWithoutMainsCancelsNothing) {
  DataCenter.BatLowSystemEnable = kSet;
  DataCenter.BatLowSystemDelay = 5;
  DataCenter.Utility = DataCenter.BatLow = kSet;
  CheckUPSEvents();
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  DataCenter.BatLow = kClear;
  CheckUPSEvents();
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  DataCenter.BatLow = kSet;
  CheckUPSEvents();
  EXPECT_EQ(EventRows(), (Rows{6, 7, 7}));
  Link.PendingCommand.clear();
  DataCenter.Utility = kClear;  // mains return while the battery is still low
  CheckUPSEvents();
  EXPECT_FALSE(SystemCountdown().IsLoaded());
  EXPECT_EQ(Link.PendingCommand, "C");
  EXPECT_EQ(EventRows(), (Rows{6, 7, 7, 8}));
}

TEST_F(EventsTest, BatteryLowThatEndsOnMainsCancels) {
  DataCenter.BatLowSystemEnable = DataCenter.BatLow = kSet;
  DataCenter.BatLowSystemDelay = 5;
  CheckUPSEvents();
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  DataCenter.BatLow = kClear;
  CheckUPSEvents();
  EXPECT_FALSE(SystemCountdown().IsLoaded());
  EXPECT_EQ(Link.PendingCommand, "C");
}

TEST_F(EventsTest, PopupsComeForFourEventsOnly) {
  DataCenter.EventPopup = kSet;
  DataCenter.Utility = DataCenter.BatLow = DataCenter.TestProgress = DataCenter.UPSFailed = kSet;
  DataCenter.LoadPercent = 120;
  CheckUPSEvents();
  EventProgramStart();
  EventLinkLost();
  std::vector<std::string> texts;
  for (const auto& program : Started("alert.exe")) texts.push_back(program.rest);
  EXPECT_EQ(texts, (std::vector<std::string>{"UPS" + EventText[5], "UPS" + EventText[6],
                                             "UPS" + EventText[10], "UPS" + EventText[9]}));
}

TEST_F(EventsTest, SenderLinesByteForByte) {
  DataCenter.MailEventEnable.fill(kSet);
  DataCenter.SmsEventEnable[1] = kSet;
  DataCenter.MailServer = "mail.example";
  DataCenter.MailSenderName = "UPS";
  DataCenter.MailSenderAddress = "ups@example";
  DataCenter.MailRecipientName = "";
  DataCenter.MailRecipientAddress = "me@example";
  DataCenter.MailSubject = "unused";
  DataCenter.MailEventText[1] = "stopped ]";
  DataCenter.SmsEventText[1] = "簡訊";
  DataCenter.SmsGateway = 1;
  DataCenter.SmsAccount = "account";
  DataCenter.SmsPassword = "pass word";
  DataCenter.SmsNumber = "886900";
  DataCenter.SmsApiId = "api";
  DataCenter.WebPort = 1888;
  SetLanguageIndex(2);
  Loadlanguage(2);
  EventProgramEnd();
  DataCenter.WebEnabled = kSet;
  EventProgramEnd();
  EventProgramStart();

  const auto mails = Started("mailto.exe");
  ASSERT_EQ(mails.size(), 3U);
  const std::string settings = "[mail.example][UPS][ups@example][][me@example][";
  const std::string link = "\r\n\r\n http://" + platform::LocalAddress() + ":1888/index.htm";
  EXPECT_EQ(mails[0].rest, settings + LangText[132] + "][stopped ]][F][2]");
  EXPECT_EQ(mails[1].rest, settings + LangText[132] + "][stopped ]" + link + "][F][2]");
  EXPECT_EQ(mails[2].rest, settings + LangText[131] + "][" + link + "][F][2]");
  const auto messagesSent = Started("SMSTO.exe");
  ASSERT_EQ(messagesSent.size(), 2U);
  EXPECT_EQ(messagesSent[0].rest, "[1][account][pass word][886900][簡訊][api][F][2]");
}

TEST_F(EventsTest, AFailedRowStopsNothingButEventsFourAndSix) {
  DataCenter.MailEventEnable.fill(kSet);
  DataCenter.EventPopup = DataCenter.PowerFailSystemEnable = kSet;
  DataCenter.PowerFailSystemDelay = 3;
  DataCenter.RatingVoltage = 220;
  CloseDatabases();

  EventProgramStart();
  EXPECT_EQ(Started("mailto.exe").size(), 1U);
  EXPECT_NE(DataCenter.DebugLines[0], "");

  EXPECT_THROW(EventLinkLost(), std::exception);
  EXPECT_EQ(Started("mailto.exe").size(), 1U);

  DataCenter.Utility = kSet;
  EXPECT_THROW(CheckUPSEvents(), std::exception);
  EXPECT_EQ(DataCenter.PowerFailLatched, kSet);
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  clock.Advance(10'000);
  CheckUPSEvents();  // the latch holds: no second start, and no second failure
  EXPECT_EQ(SystemCountdown().Get().Seconds(), 170);
  EXPECT_EQ(Started("mailto.exe").size(), 1U);
}

TEST_F(EventsTest, AMissingPopupProgramLosesTheRowOfSixButNotTheCountdown) {
  DataCenter.EventPopup = DataCenter.PowerFailSystemEnable = kSet;
  DataCenter.Utility = DataCenter.UPSFailed = kSet;
  programsMissing = true;
  EXPECT_THROW(CheckUPSEvents(), std::exception);
  EXPECT_EQ(DataCenter.PowerFailLatched, kSet);
  EXPECT_TRUE(SystemCountdown().IsLoaded());
  CheckUPSEvents();
  EXPECT_EQ(EventRows(), Rows{11});  // a fault is written although its pop-up failed
}

TEST_F(EventsTest, StaleFlagsRaiseNothingWhileTheLinkIsDown) {
  DataCenter.Utility = kSet;
  CheckUPSEvents();
  EventLinkLost();
  CheckUPSEvents();
  EventLinkUp();
  CheckUPSEvents();
  EXPECT_EQ(EventRows(), (Rows{6, 4, 3}));
}

}  // namespace
}  // namespace varek
