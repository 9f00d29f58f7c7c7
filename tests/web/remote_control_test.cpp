// Remote control as a table: each letter with and without the token and the output.

#include "web/server/remote_control.h"

#include <gtest/gtest.h>

#include "core/data_center.h"
#include "core/link_record.h"
#include "platform/errors/runtime_error.h"
#include "records/shutdown/system_countdown.h"
#include "records/shutdown/ups_countdown.h"
#include "support/monitor_fixture.h"
#include "web/session/session.h"

namespace varek {
namespace {

class RemoteControlTest : public test::MonitorTest {
 protected:
  RemoteControlTest() {
    DataCenter.settings.WebControlPassword = "control";
    DataCenter.settings.UPSShutdownBuffer = 5;
    DataCenter.settings.SystemShutdownBuffer = 2;
    ControlKey = NewKey();
  }

  /// What a command leads to: the text for the unit, "+shutdown" when the computer goes down.
  std::string Outcome(const std::string& command, float output) {
    DataCenter.readings.OutputVoltage = output;
    Link.PendingCommand = "";
    AnyControl(command);
    if (UPSCountdown().IsLoaded()) {
      Link.PendingCommand = "";  // The unit has taken the cancel that goes before.
      clock.Advance(200);
    }
    const std::string outcome =
        Link.PendingCommand + (SystemCountdown().IsLoaded() ? "+shutdown" : "");
    UPSCountdown().Unload();
    SystemCountdown().Unload();
    return outcome;
  }
};

TEST_F(RemoteControlTest, EveryLetterAsksForItsRights) {
  const struct {
    const char* command;  ///< '$' stands for the token
    const char* alive;
    const char* dead;  ///< with no output voltage
  } cases[] = {
      {"T", "T", "T"},
      {"Test&x=1", "T", "T"},
      {"L", "TL", "TL"},
      {"D05", "T05", "T05"},
      {"D05&x=1", "T05&x=1", "T05&x=1"},
      {"D05\rS00", "T05", "T05"},
      {"P", "CT", "CT"},
      {"Q", "Q", "Q"},
      {"C", "C", ""},
      {"S", "", ""},
      {"S$", "S05R9999", ""},
      {"M", "", ""},
      {"M&k=$", "+shutdown", "+shutdown"},
      {"A$", "S05R9999+shutdown", "+shutdown"},
      {"A", "", ""},
      {"R1 0+10+$", "S05R0039", ""},
      {"R1 0+10+", "", ""},
      {"R0 23+40+$", "S05R0009", ""},
      {"R1 0+10$", "", ""},
      {"R1$", "", ""},
      {"B1+0+10+$", "S05R0039+shutdown", "+shutdown"},
      {"B1+0+10+", "", ""},
      {"B1 0$", "", ""},
      {"", "", ""},
      {"t", "", ""},
      {"X$", "", ""},
  };
  const std::string token = ControlToken();
  for (const auto& one : cases) {
    std::string command = one.command;
    if (command.ends_with('$')) command.replace(command.size() - 1, 1, token);
    clock.SetNow({2026, 3, 10, 23, 30, 0});
    EXPECT_EQ(Outcome(command, 230), one.alive) << one.command;
    clock.SetNow({2026, 3, 10, 23, 30, 0});
    EXPECT_EQ(Outcome(command, 0), one.dead) << one.command;
  }
  EXPECT_THROW(AnyControl("B0 0+99999+" + token), platform::RuntimeError);
  EXPECT_FALSE(SystemCountdown().IsLoaded());
  const std::string digits(64, '1');
  EXPECT_EQ(Outcome("D" + digits, 230) + Outcome("D1" + digits, 230), "T" + digits);

  AnyControl("M" + token);
  DataCenter.readings.OutputVoltage = 0;
  AnyControl("C");
  EXPECT_TRUE(SystemCountdown().IsLoaded()) << "without an output there is no cancelling";
  SystemCountdown().Unload();
  ControlKey = NewKey();
  EXPECT_EQ(Outcome("S" + token, 230), "") << "a page has drawn a newer key";
}

}  // namespace
}  // namespace varek
