// The serial port on real pseudo-terminals: bytes both ways, limits, and a device that goes away.

#include "platform/serial_port.h"

#include <gtest/gtest.h>

#include "error_of.h"
#include "platform/clock.h"
#include "platform/events.h"
#include "support/monitor_fixture.h"
#include "support/serial_line.h"

namespace platform {
namespace {

using namespace std::string_literals;

using varek::test::PumpUntil;
using Unit = varek::test::PseudoTerminal;

class SerialPortTest : public testing::Test {
 protected:
  SerialPortTest() {
    varek::test::StartToolkit();
    setenv("VAREK_COM_DIR", folder.Path().c_str(), 1);
    port.SetCommPort(3);
  }
  ~SerialPortTest() override { setenv("VAREK_COM_DIR", "/nonexistent", 1); }

  /// All that arrives from `source` until it ends with `end`.
  static std::string AllFrom(const std::function<std::string()>& source, const std::string& end) {
    std::string bytes;
    PumpUntil([&] { return (bytes += source()).ends_with(end); });
    return bytes;
  }
  std::string InputUntil(const std::string& end) {
    return AllFrom([this] { return port.Input(); }, end);
  }

  varek::test::TemporaryFolder folder;
  std::string link = folder.Path() + "/com3";
  SerialPort port;
};

TEST_F(SerialPortTest, EveryByteGoesBothWaysUnchanged) {
  const Unit unit(link);
  port.Open();
  EXPECT_TRUE(port.PortOpen());
  std::string all = "(\r\n\0"s;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  unit.Send(all);
  EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() == all.size(); }));
  EXPECT_EQ(port.Input(), all);
  EXPECT_EQ(port.Input(), "");
  port.Output("Q1\r");
  port.Output(all);
  EXPECT_EQ(AllFrom([&] { return unit.Receive(); }, all), "Q1\r" + all);
  EXPECT_EQ(port.InBufferCount(), 0U);  // No echo.
}

TEST_F(SerialPortTest, AnAbsentOrTakenPortRefuses) {
  EXPECT_EQ(ErrorOf([&] { port.Open(); }), errors::kPortOpenFailed);
  EXPECT_EQ(ErrorOf([&] { port.Output("Q1\r"); }), errors::kPortNotOpen);
  EXPECT_EQ(port.Input(), "");
  const Unit unit(link);
  port.Open();
  SerialPort second;
  second.SetCommPort(3);
  EXPECT_EQ(ErrorOf([&] { second.Open(); }), errors::kPortOpenFailed);
  EXPECT_FALSE(second.PortOpen());
  unit.Send("still the first");
  EXPECT_EQ(InputUntil("first"), "still the first");
  port.Close();
  second.Open();
  unit.Send("now the second");
  EXPECT_EQ(AllFrom([&] { return second.Input(); }, "second"), "now the second");
}

TEST_F(SerialPortTest, ADeviceThatGoesIsClosedAndOpensAgain) {
  auto unit = std::make_unique<Unit>(link);
  port.Open();
  unit->Send("half a re");
  EXPECT_EQ(InputUntil("re"), "half a re");
  unit.reset();
  // Between two looks at the port the loop must sleep, though the device is gone.
  int rounds = 0;
  for (const int64_t end = TickCount() + 200; TickCount() < end; ++rounds) WaitForEvents(10);
  EXPECT_LT(rounds, 100);
  EXPECT_FALSE(port.PortOpen());
  EXPECT_EQ(port.Input(), "");
  EXPECT_EQ(ErrorOf([&] { port.Output("Q1\r"); }), errors::kPortNotOpen);
  EXPECT_EQ(ErrorOf([&] { port.Open(); }), errors::kPortOpenFailed);

  unit = std::make_unique<Unit>(link);
  port.Open();
  unit->Send("(220");
  EXPECT_EQ(InputUntil("220"), "(220");
}

TEST_F(SerialPortTest, AFloodIsHeldBackAndLosesNothing) {
  const Unit unit(link);
  port.Open();
  std::string sent;
  // Nobody reads: the line fills up behind the port's own limit.
  for (int refusals = 0; refusals < 20; WaitForEvents(5)) {
    const std::string more(512, static_cast<char>('a' + sent.size() / 512 % 26));
    const size_t taken = unit.Send(more);
    sent += more.substr(0, taken);
    refusals = taken == 0 ? refusals + 1 : 0;
    ASSERT_LT(sent.size(), 1'000'000U);
  }
  std::string arrived;
  EXPECT_TRUE(PumpUntil([&] {
    EXPECT_LE(port.InBufferCount(), 4096U);
    return (arrived += port.Input()).size() >= sent.size();
  }));
  EXPECT_TRUE(arrived == sent);
}

TEST_F(SerialPortTest, ADeviceThatTakesNothingIsAnErrorAndRecovers) {
  const Unit unit(link);
  port.Open();
  int error = 0;
  for (int i = 0; error == 0 && i < 10'000; ++i) {
    error = ErrorOf([&] { port.Output(std::string(100, 'x')); });
    DoEvents();
  }
  EXPECT_EQ(error, errors::kDeviceIo);
  while (!unit.Receive().empty()) {
  }
  port.Output("Q1\r");
  EXPECT_TRUE(AllFrom([&] { return unit.Receive(); }, "Q1\r").ends_with("Q1\r"));
}

}  // namespace
}  // namespace platform
