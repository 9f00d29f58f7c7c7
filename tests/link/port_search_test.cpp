// The port search and the change of port, on real pseudo-terminals and a simulated USB unit, with
// a stepped clock.

#include "link/port_search.h"

#include <stdlib.h>

#include <algorithm>

#include "core/error_list.h"
#include "core/link_record.h"
#include "link/usb_link.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "platform/time/timers.h"
#include "support/hid_unit.h"
#include "support/monitor_fixture.h"
#include "support/serial_line.h"

namespace varek {
namespace {

const std::string kStatus = "(208.4 140.0 208.4 034 59.9 2.05 35.0 00001000\r";

class PortSearchTest : public test::MonitorTest {
 protected:
  PortSearchTest() {
    setenv("VAREK_COM_DIR", Folder().c_str(), 1);
    SetSearchDisplay(
        {[this] { shown = true; }, [this](const std::string& name) { labels.push_back(name); },
         [this](double percent) { progress.push_back(percent); }, [this] { shown = false; }});
  }
  ~PortSearchTest() override {
    SetSearchDisplay({});
    Usb = UsbRecord();
  }

  int16_t Search() {
    int16_t port = 0;
    const int64_t start = platform::TickCount();
    findport(port);
    taken = platform::TickCount() - start;
    EXPECT_FALSE(shown);
    EXPECT_TRUE(std::ranges::is_sorted(progress));
    EXPECT_FALSE(Link.MSComm2.PortOpen());
    return port;
  }

  std::string Link16(int number) const { return Folder() + "/com" + std::to_string(number); }

  bool shown = false;
  std::vector<std::string> labels;
  std::vector<double> progress;
  int64_t taken = 0;  ///< milliseconds of the stepped clock
};

TEST_F(PortSearchTest, WithNothingAnywhereTheWholeSearchGivesNothing) {
  int ticks = 0;
  platform::Timer timer(
      "ticks",
      [&ticks] {
        int16_t inner = 7;
        findport(inner);  // only one search at a time
        EXPECT_EQ(inner, 7);
        ++ticks;
      },
      500);
  EXPECT_EQ(Search(), 0);
  EXPECT_EQ(labels.size(), 17U);
  EXPECT_EQ(labels.front() + " " + labels.back(), "USB COM16");
  EXPECT_EQ(progress.back(), (16 + 17) / 34.0 * 100);
  EXPECT_EQ(Form13::List1().size(), 16U);
  EXPECT_NE(Form13::List1()[0].find("form12 com開啟8002錯誤"), std::string::npos);
  EXPECT_EQ(taken, 7001);
  EXPECT_EQ(ticks, 14);  // everything else goes on meanwhile
}

TEST_F(PortSearchTest, AUnitOnUsbEndsTheSearchAtOnce) {
  using Mood = test::HidUnit::Mood;
  for (auto mood : {Mood::Good, Mood::Slow, Mood::Short}) {
    test::HidUnit unit(0x0001, 0x0000);
    unit.mood = mood;
    EXPECT_EQ(Search(), kUsbPort);
    EXPECT_LT(taken, 1000);
    EXPECT_EQ(labels.back(), "USB");
    Link.UsbOpen = 0;
    Usb = UsbRecord();
    progress.clear();
  }
}

TEST_F(PortSearchTest, TheFirstComPortThatAnswersWithABracketWins) {
  const test::PseudoTerminal silent(Link16(1)), rubbish(Link16(2)), endless(Link16(3));
  const test::PseudoTerminal unit(Link16(4)), later(Link16(5));
  // The units answer as soon as they are asked.
  platform::Timer answer(
      "answer",
      [&] {
        if (!rubbish.Receive().empty()) rubbish.Send("NAK\r");
        if (!endless.Receive().empty()) endless.Send("(no end");
        if (!unit.Receive().empty()) unit.Send("(short\r");
        if (!later.Receive().empty()) later.Send(kStatus);
      },
      20);
  EXPECT_EQ(Search(), 4);
  EXPECT_EQ(Link.MSComm1.CommPort(), 4);
  EXPECT_EQ(progress.back(), 100);
  EXPECT_EQ(labels.back(), "COM4");
}

TEST_F(PortSearchTest, AWorkingLinkCountsAsFoundAndStaysOpenAndAModemDoesNot) {
  const test::PseudoTerminal modem(Link16(1)), unit(Link16(3));
  platform::Timer answer(
      "answer",
      [&] {
        if (!modem.Receive().empty()) modem.Send("ERROR\r");
        if (!unit.Receive().empty()) unit.Send(kStatus);
      },
      20);
  SelectSerial(1);
  Link.MSComm1.Open();
  Link.LinkUp = 1;  // Any line has done that.
  EXPECT_EQ(Search(), 3);
  EXPECT_EQ(Link.MSComm1.CommPort(), 3);

  Link.MSComm1.Open();
  Link.StatusAccepted = true;
  progress.clear();
  EXPECT_EQ(Search(), 3);
  EXPECT_TRUE(Link.MSComm1.PortOpen());
  SelectUsb();  // While it is not polled, nothing is known of it.
  EXPECT_FALSE(Link.StatusAccepted);
}

TEST_F(PortSearchTest, AnExitBreaksOffBothLoops) {
  for (int milliseconds : {3000, 7500}) {
    const test::PseudoTerminal silent(Link16(1)), unit(Link16(2));
    Link.ExitRequested = false;
    platform::Timer exit(
        "exit", [] { RequestSearchExit(); }, milliseconds);
    EXPECT_EQ(Search(), 0);
    EXPECT_LT(taken, milliseconds + 1100);
    EXPECT_EQ(labels.back(), milliseconds < 7000 ? "USB" : "COM1");
    progress.clear();
  }
}

TEST_F(PortSearchTest, SetPortMovesTheLinkAndLeavesThePresentOneAlone) {
  const test::PseudoTerminal first(Link16(1)), second(Link16(2));
  SetPort(1);
  EXPECT_EQ(Link.LinkType, kSerialLink);
  EXPECT_TRUE(Link.MSComm1.PortOpen());
  Link.MSComm1.Close();
  SetPort(1);
  EXPECT_FALSE(Link.MSComm1.PortOpen());  // not even a closed port is opened again
  SetPort(2);
  EXPECT_TRUE(Link.MSComm1.PortOpen());
  SetPort(0);
  EXPECT_EQ(Link.PortNumber, 2);
  SetPort(9);  // not there: the poll cycle goes on trying
  EXPECT_EQ(Link.PortNumber, 9);
  EXPECT_FALSE(Link.MSComm1.PortOpen());
  EXPECT_TRUE(Form13::List1().empty());

  test::HidUnit unit(0xFFFF, 0x0000);
  SetPort(kUsbPort);
  EXPECT_EQ(Link.LinkType, kUsbLink);
  EXPECT_EQ(unit.open, 1);
  SetPort(2);
  EXPECT_EQ(unit.open, 0);
  EXPECT_EQ(Link.UsbOpen, 1);
}

}  // namespace
}  // namespace varek
