// The one-block hash, the tokens made with it, and the commands that ask for one.

#include "web/server/remote_control.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>

#include "core/data_center.h"
#include "core/link_record.h"
#include "platform/errors/runtime_error.h"
#include "records/shutdown/system_countdown.h"
#include "records/shutdown/ups_countdown.h"
#include "support/monitor_fixture.h"
#include "web/session/hash.h"
#include "web/session/session.h"

namespace varek {
namespace {

std::string Md5(const std::string& text) {
  return QCryptographicHash::hash(QByteArray::fromStdString(text), QCryptographicHash::Md5)
      .toHex()
      .toStdString();
}

TEST(HashTest, IsMd5UpToFiftyFiveCharactersAndNoFurther) {
  for (size_t length = 0; length < 64; ++length) {
    const std::string text(length, 'x');
    EXPECT_EQ(Hash(text) == Md5(text), length <= 55) << length;
  }
  EXPECT_THROW(Hash(std::string(64, 'x')), platform::RuntimeError);
  // As long as what makes a token; the characters 57 to 60 carry no weight.
  for (const char* end : {"6789xyz", "----xyz"})
    EXPECT_EQ(Hash("01234567890123456789012345678901234567890123456789012345" + std::string(end)),
              "f602586ef133a4ca2399c621a716c048");
}

TEST(HashTest, CharactersAreCodeUnitsOfWhichAWordKeepsItsLowHalf) {
  // Two characters of four digits fill a word; what stands in front of them falls away, and the
  // length of three or four still counts.
  EXPECT_EQ(Hash("密碼ab"), Hash("密碼cd"));
  EXPECT_NE(Hash("密碼a"), Hash("密碼ab"));
  EXPECT_NE(Hash("密a"), Hash("密b"));
  EXPECT_EQ(Hash("😀ab"), Hash("😀cd")) << "a surrogate pair counts as two";
  EXPECT_NE(Hash("\5\141"), Md5("\5\141")) << "a control character has one digit";
}

TEST(SessionTest, ATokenIsMadeOfItsOwnPasswordAndKey) {
  DataCenter = DataCenterRecord();
  DataCenter.settings.WebLoginPassword = "login";
  DataCenter.settings.WebControlPassword = "control";
  for (std::string* key : {&LoginKey, &SessionKey, &ControlKey}) *key = NewKey();
  EXPECT_EQ(LoginKey.size(), 31U);
  EXPECT_NE(LoginKey, SessionKey);
  EXPECT_EQ(LoginToken(), Hash(Hash("login") + LoginKey));
  EXPECT_EQ(SessionToken(), Hash(Hash("login") + SessionKey));
  EXPECT_EQ(ControlToken(), Hash(Hash("control") + ControlKey));
}

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
    clock.SetNow({2026, 3, 10, 23, 30, 0});
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
  // What is asked ('$' stands for the token) and its outcomes with an output voltage and without.
  const std::tuple<std::string, const char*, const char*> cases[] = {
      {"T", "T", "T"},
      {"L", "TL", "TL"},
      {"D05&x=1", "T05&x=1", "T05&x=1"},
      {"D05\rS00", "T05", "T05"},
      {"P", "CT", "CT"},
      {"Q", "Q", "Q"},
      {"C", "C", ""},
      {"S$", "S05R9999", ""},
      {"M&k=$", "+shutdown", "+shutdown"},
      {"A$", "S05R9999+shutdown", "+shutdown"},
      {"R1 0+10+$", "S05R0039", ""},
      {"R0 23+40+$", "S05R0009", ""},
      {"R1$", "", ""},
      {"B1+0+10+$", "S05R0039+shutdown", "+shutdown"},
      {"X$", "", ""},
  };
  const std::string token = ControlToken();
  for (auto [command, alive, dead] : cases) {
    if (command.ends_with('$')) command.replace(command.size() - 1, 1, token);
    EXPECT_EQ(Outcome(command, 230), alive) << command;
    EXPECT_EQ(Outcome(command, 0), dead) << command;
  }
  for (const char* command : {"S", "M", "A", "R1 0+10+", "B1+0+10+", ""})
    EXPECT_EQ(Outcome(command, 230), "") << command;
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
