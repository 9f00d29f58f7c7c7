// The USB link on a simulated unit: every framing byte for byte, the failure count, and the poll
// cycle over it.

#include "link/usb_link.h"

#include <algorithm>

#include "core/data_center.h"
#include "core/error_list.h"
#include "core/link_record.h"
#include "link/poll_cycle.h"
#include "platform/time/timers.h"
#include "records/files/databases.h"
#include "support/hid_unit.h"
#include "support/monitor_fixture.h"

namespace varek {
namespace {

using test::HidUnit;

class UsbLinkTest : public test::MonitorTest {
 protected:
  UsbLinkTest() {
    Usb = UsbRecord();
    OpenDatabases();
    SelectUsb();
  }
  ~UsbLinkTest() override { Usb = UsbRecord(); }

  /// The command texts among the reports sent so far, status queries left out.
  std::vector<std::string> Orders() const {
    std::vector<std::string> texts;
    for (const auto& report : unit.sent) {
      const std::string text(report.begin() + 3, report.begin() + 2 + report[2]);
      if (text != "Q1") texts.push_back(text);
    }
    return texts;
  }

  void Seconds(int count) { clock.Advance(1000 * count); }

  HidUnit unit{0xFFFF, 0x0000};
  PollCycle cycle;
  platform::Timer COMtime{"form12 COMtime", [this] { cycle.COMtime_Timer(); }, 500};
};

TEST_F(UsbLinkTest, EveryCommandHasItsFrame) {
  Action();
  Usb.ShutdownDelay = 5;
  Usb.ShutdownDelayLong = 123;  // only the first digits fit in
  Usb.RestartDelay = 30;
  const struct {
    const char* command;
    std::vector<uint8_t> bytes;
  } frames[] = {
      {"Q1", {5, 0, 3, 'Q', '1', 13}},
      {"F", {5, 0, 2, 'F', 13}},
      {"I", {5, 0, 2, 'I', 13}},
      {"T", {5, 2, 2, 'T', 13}},
      {"TL", {5, 2, 3, 'T', 'L', 13}},
      {"T1", {5, 2, 3, 'T', '1', 13}},
      {"Q", {5, 2, 2, 'Q', 13}},
      {"C", {5, 2, 2, 'C', 13}},
      {"CT", {5, 2, 3, 'C', 'T', 13}},
      {"S", {5, 2, 4, 'S', '0', '5', 13}},
      {"SR", {5, 2, 9, 'S', '1', '2', 'R', '0', '0', '3', '0', 13}},
  };
  for (const auto& frame : frames) {
    const std::string reply = SentCommand(frame.command);
    EXPECT_EQ(reply.size(), frame.bytes[1] == 0 ? 47U : 0U) << frame.command;
    platform::HidReport expected{};
    std::ranges::copy(frame.bytes, expected.begin());
    EXPECT_EQ(unit.sent.back(), expected) << frame.command;
  }
  const size_t before = unit.sent.size();
  for (const char* unknown : {"T05", "", "q1", "S05", "Q1 "}) {
    EXPECT_EQ(SentCommand(unknown), "no response") << unknown;
  }
  EXPECT_EQ(unit.sent.size(), before);
}

TEST_F(UsbLinkTest, BothIdentitiesAreFoundAndNoOther) {
  const struct {
    uint16_t vendor, product;
    int open;
  } identities[] = {{0xFFFF, 0, 1}, {1, 0, 1}, {0xFFFF, 1, 0}, {1, 1, 0}, {2, 0, 0}};
  for (const auto& identity : identities) {
    HidUnit other(identity.vendor, identity.product);
    Link.UsbOpen = 0;
    Action();
    EXPECT_EQ(Link.UsbOpen, identity.open) << identity.vendor << " " << identity.product;
    EXPECT_EQ(other.open, identity.open);
    Usb.UsbHandle.reset();
  }
}

TEST_F(UsbLinkTest, AUnitThatMayNotBeOpenedIsToldOfOnce) {
  unit.forbidden = true;
  Seconds(30);
  const auto told = [] {
    return std::ranges::count_if(DataCenter.DebugLines, [](const std::string& line) {
      return line.find("may not open") != std::string::npos;
    });
  };
  EXPECT_EQ(told(), 1);
  unit.forbidden = false;
  Seconds(5);
  EXPECT_TRUE(DataCenter.IsConnect);
  unit.plugged = false;
  Seconds(10);
  unit.plugged = unit.forbidden = true;
  Seconds(10);
  EXPECT_EQ(told(), 2);
}

TEST_F(UsbLinkTest, TheThirdBadReplyInARowTakesTheDeviceDown) {
  for (auto mood : {HidUnit::Mood::Zeros, HidUnit::Mood::NumberOnly, HidUnit::Mood::Mute}) {
    unit.mood = HidUnit::Mood::Good;
    Action();
    unit.mood = mood;
    EXPECT_EQ(SentCommand("Q1"), "");
    EXPECT_EQ(SentCommand("Q1"), "");
    unit.mood = HidUnit::Mood::Good;
    EXPECT_EQ(SentCommand("Q1").size(), 47U);  // a good one begins the count anew
    unit.mood = mood;
    EXPECT_EQ(SentCommand("Q1"), "");
    EXPECT_EQ(SentCommand("Q1"), "");
    EXPECT_EQ(SentCommand("Q1"), "Not Link");
    EXPECT_EQ(Link.UsbOpen, 0);
    EXPECT_EQ(SentCommand("F"), "Not Link");
  }
}

TEST_F(UsbLinkTest, TheThirdFailedSearchClosesWhateverIsOpen) {
  Action();
  unit.plugged = false;
  for (int open : {1, 1, 0}) {
    Action();
    EXPECT_EQ(Link.UsbOpen, open);
    EXPECT_EQ(unit.open, 0);
  }
  Action(), Action();
  unit.plugged = true;
  Action();  // begins the count anew
  unit.mood = HidUnit::Mood::Mute;
  EXPECT_EQ(SentCommand("Q1") + SentCommand("Q1"), "");
}

TEST_F(UsbLinkTest, ThePollCycleReadsTheUnitAndSendsOrders) {
  unit.mood = HidUnit::Mood::Slow;
  Seconds(8);
  EXPECT_TRUE(DataCenter.IsConnect);
  EXPECT_FLOAT_EQ(DataCenter.readings.InputVoltage, 220.5F);
  EXPECT_FLOAT_EQ(DataCenter.ratings.RatingVoltage, 220);
  EXPECT_EQ(DataCenter.identity.UPSModel, "SIM-1000");
  EXPECT_TRUE(DataCenter.HasTemperature && DataCenter.HasLoad);
  for (const char* order : {"T05", "T1", "S05", "S1666", "S12R3456", "S05R9999", "C"}) {
    Link.PendingCommand = order;
    Seconds(2);
    EXPECT_EQ(Link.PendingCommand, "") << order;
  }
  EXPECT_EQ(Orders(),
            (std::vector<std::string>{"F", "I", "T1", "S05", "S16", "S12R3456", "S05R9999", "C"}));
  EXPECT_EQ(EventRows(), std::vector<int>{3});
  EXPECT_TRUE(Form13::List1().empty());
  unit.mood = HidUnit::Mood::Short;
  unit.model.SetMains(false);
  Seconds(2);
  EXPECT_TRUE(DataCenter.flags.Utility);
}

TEST_F(UsbLinkTest, AUnitWithoutACompanyIsAskedAgain) {
  unit.model = simulator::UpsModel({.company = ""});
  Seconds(8);
  EXPECT_EQ(Orders(), (std::vector<std::string>{"F", "I", "I", "I"}));
}

TEST_F(UsbLinkTest, APulledUnitIsLostOnceAndComesBackByItself) {
  Seconds(4);
  unit.plugged = false;
  Seconds(20);
  EXPECT_FALSE(DataCenter.IsConnect);
  EXPECT_EQ(EventRows(), (std::vector<int>{3, 4}));
  Link.PendingCommand = "S01";  // waits for the link
  Seconds(4);
  unit.plugged = true;
  Seconds(6);
  EXPECT_TRUE(DataCenter.IsConnect);
  const auto orders = Orders();
  EXPECT_EQ(std::ranges::count(orders, "S01"), 1);
  EXPECT_EQ(EventRows(), (std::vector<int>{3, 4, 3}));
}

TEST_F(UsbLinkTest, ALossThatCannotBeRecordedDoesNotBlindTheMonitor) {
  Seconds(4);
  CloseDatabases();
  unit.plugged = false;
  Seconds(20);
  unit.plugged = true;
  Seconds(4);
  unit.model.SetMains(false);
  Seconds(4);
  EXPECT_TRUE(DataCenter.IsConnect && DataCenter.flags.Utility);
}

}  // namespace
}  // namespace varek
