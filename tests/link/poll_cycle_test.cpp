// The poll cycle over a real pseudo-terminal, tick by tick: what goes out in which half, when the
// link comes and goes, and what broken input does.

#include "link/poll_cycle.h"

#include <gmock/gmock.h>
#include <stdlib.h>

#include <optional>

#include "core/data_center.h"
#include "core/error_list.h"
#include "core/link_record.h"
#include "records/files/databases.h"
#include "support/monitor_fixture.h"
#include "support/serial_line.h"

namespace varek {
namespace {

const std::string kStatus = "(208.4 140.0 208.4 034 59.9 2.05 35.0 00001000\r";
const std::string kOtherStatus = "(230.1 140.0 208.4 034 59.9 2.05 35.0 00001000\r";
const std::string kRating = "#220.0 047 024.0 50.0\r";
const std::string kIdentity = "#                UPS 1000             \r";

/// Milliseconds after which a line on which nothing comes counts as silent.
constexpr int kPatience = 300;

class PollCycleTest : public test::MonitorTest {
 protected:
  PollCycleTest() {
    setenv("VAREK_COM_DIR", Folder().c_str(), 1);
    SelectSerial(1);
    OpenDatabases();
  }

  /// One send step and one receive step; the unit answers in between. Returns what went out.
  std::string Cycle(const std::string& reply = "") {
    cycle.COMtime_Timer();
    const std::string sent = unit ? unit->Receive(kPatience) : "";
    Answer(reply);
    cycle.COMtime_Timer();
    return sent;
  }

  /// The unit's bytes are in the port's buffer when this returns.
  void Answer(const std::string& reply) {
    if (reply.empty()) return;
    unit->Send(reply);
    test::PumpUntil([&] { return Link.MSComm1.InBufferCount() >= reply.size(); });
  }

  void BringUp() {
    for (const auto& reply : {kStatus, kStatus, kRating, kStatus, kIdentity}) Cycle(reply);
  }

  std::string link = Folder() + "/com1";
  std::optional<test::PseudoTerminal> unit{std::in_place, link};
  PollCycle cycle;
};

TEST_F(PollCycleTest, TheLinkComesUpAndAsksWhatItDoesNotKnow) {
  Link.PendingCommand = "S05";  // waits for the link
  EXPECT_EQ(Cycle(), "Q1\r");
  EXPECT_EQ(Cycle(), "Q1\r");
  EXPECT_FALSE(DataCenter.IsConnect);
  EXPECT_EQ(Cycle(kStatus), "Q1\r");
  EXPECT_TRUE(DataCenter.IsConnect);
  const std::string nothing;
  std::string sent;
  for (const auto& reply : {kStatus, nothing, kStatus, nothing, kStatus, kRating, kStatus}) {
    sent += Cycle(reply);
  }
  EXPECT_EQ(sent, "Q1\rS05\rQ1\rF\rQ1\rF\rQ1\r");
  Link.PendingCommand = " TL ";
  EXPECT_EQ(Cycle(), "TL\r");  // a command goes first
  EXPECT_EQ(Link.PendingCommand, "");
  EXPECT_EQ(Cycle(kStatus), "Q1\r");
  EXPECT_EQ(Cycle(kIdentity), "I\r");
  EXPECT_EQ(Cycle(kStatus), "Q1\r");
  EXPECT_EQ(Cycle(), "");  // one part of the identity is enough
  EXPECT_EQ(DataCenter.identity.UPSModel, "UPS 1000");
  EXPECT_FLOAT_EQ(DataCenter.ratings.RatingVoltage, 220);
  EXPECT_EQ(EventRows(), std::vector<int>{3});
}

TEST_F(PollCycleTest, FourSilentSecondsLoseTheLinkAndKeepTheFlags) {
  BringUp();
  ASSERT_TRUE(DataCenter.flags.UPStype);
  for (int second = 0; second < 3; ++second) Cycle();
  EXPECT_TRUE(DataCenter.IsConnect);
  Cycle();
  EXPECT_FALSE(DataCenter.IsConnect);
  EXPECT_EQ(DataCenter.ratings.RatingVoltage + DataCenter.readings.OutputVoltage + GetLoadPercent(),
            0);
  EXPECT_EQ(DataCenter.identity.UPSModel, "");
  EXPECT_TRUE(DataCenter.flags.UPStype);
  EXPECT_EQ(EventRows(), (std::vector<int>{3, 4}));
  EXPECT_EQ(Cycle(), "Q1\r");
  Cycle(kStatus);
  EXPECT_TRUE(DataCenter.IsConnect);
  std::string asked;
  for (int second = 0; second < 4; ++second) asked += Cycle(second == 1 ? kRating : kStatus);
  EXPECT_NE(asked.find("F\r"), std::string::npos);
  EXPECT_NE(asked.find("I\r"), asked.find("F\r"));
  EXPECT_EQ(EventRows(), (std::vector<int>{3, 4, 3}));
}

TEST_F(PollCycleTest, AnyLineIsASignOfLifeButOnlyAGoodOneChangesReadings) {
  Cycle("NAK\r");
  EXPECT_FALSE(Link.StatusAccepted);
  BringUp();
  for (int second = 0; second < 8; ++second) Cycle("NAK\r");
  EXPECT_TRUE(DataCenter.IsConnect && Link.StatusAccepted);
  EXPECT_FLOAT_EQ(DataCenter.readings.InputVoltage, 208.4F);
}

TEST_F(PollCycleTest, TornRepliesAreReadAndBlanksAtTheTearAreLost) {
  BringUp();
  cycle.COMtime_Timer();
  Answer(kOtherStatus.substr(0, 20));
  cycle.COMtime_Timer();
  Cycle(kOtherStatus.substr(20));
  EXPECT_FLOAT_EQ(DataCenter.readings.InputVoltage, 230.1F);

  Cycle(kStatus.substr(0, 7));  // the blank behind the first field is cut off
  Cycle(kStatus.substr(7));
  EXPECT_FLOAT_EQ(DataCenter.readings.InputVoltage, 230.1F);
  EXPECT_TRUE(DataCenter.IsConnect);
}

TEST_F(PollCycleTest, ALineWithoutEndIsDroppedAndTheNextOneRead) {
  BringUp();
  Cycle(std::string(2000, '('));
  Cycle(std::string(2090, '\0'));
  Cycle(std::string(10, '\xff'));  // beyond the limit: all of it goes
  EXPECT_TRUE(DataCenter.IsConnect);
  Cycle(kOtherStatus + kStatus);
  Cycle();
  EXPECT_FLOAT_EQ(DataCenter.readings.InputVoltage, 230.1F) << "nothing behind a line is kept";
}

TEST_F(PollCycleTest, AnAdapterThatGoesAndComesBackIsPolledAgain) {
  BringUp();
  test::Journal journal;
  unit.reset();
  test::PumpUntil([] { return !Link.MSComm1.PortOpen(); });
  for (int second = 0; second < 5; ++second) Cycle();
  EXPECT_FALSE(DataCenter.IsConnect);
  const size_t before = Form13::List1().size();
  Cycle();
  Cycle();
  EXPECT_EQ(Form13::List1().size(), before + 2);
  EXPECT_NE(Form13::List1().back().find("form12傳送資料發生8002錯誤"), std::string::npos);
  unit.emplace(link);
  EXPECT_EQ(Cycle(kStatus), "Q1\r");
  EXPECT_TRUE(DataCenter.IsConnect);
  EXPECT_THAT(journal.Take(),
              testing::MatchesRegex("serial port: could not send \\(COM1\\): [^\n]+\n"
                                    "serial port: works again \\(COM1\\)\n"));
}

TEST_F(PollCycleTest, AnEventThatFailsIsListedUnderTheReceiveStep) {
  BringUp();
  CloseDatabases();
  for (int second = 0; second < 5; ++second) Cycle();
  EXPECT_FALSE(DataCenter.IsConnect);
  EXPECT_NE(Form13::List1().back().find("form12 Comm RECEive DATA ERROR91錯誤"), std::string::npos);
}

}  // namespace
}  // namespace varek
