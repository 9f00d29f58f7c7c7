// The unit without any line: its replies column by column, its battery, tests and shutdowns.

#include "simulator/ups_model.h"

#include <gtest/gtest.h>

#include <sstream>

namespace simulator {
namespace {

using namespace std::chrono_literals;

std::string Status(UpsModel& model) { return model.Handle("Q1").value_or(""); }
std::string FlagsOf(UpsModel& model) { return Status(model).substr(38, 8); }

TEST(UpsModel, RepliesInFixedColumns) {
  UpsModel usual{{}}, offLine({.type = UnitType::OffLine}), low{{}};
  EXPECT_EQ(usual.Handle("Q1"), "(220.5 220.5 220.0 035 50.0 2.27 28.5 00000000\r");
  EXPECT_EQ(usual.Handle("F"), "#220.0 004 24.00 50.0\r");
  EXPECT_EQ(usual.Handle("I"), "#VAREK           SIM-1000   V1.00     \r");
  offLine.SetMains(false);
  EXPECT_EQ(offLine.Handle("Q1"), "(000.0 000.0 220.0 035 50.0 27.3 28.5 10001000\r");
  low.SetLoad(-1), low.SetTemperature(-5), low.SetCharge(-1);
  EXPECT_EQ(low.Handle("Q1"), "(220.5 220.5 220.0 000 50.0 1.67 00.0 01000000\r");
}

TEST(UpsModel, DrainsWithTheLoadAndCharges) {
  UpsModel model({.runtimeMinutes = 10, .chargeMinutes = 100});
  model.SetLoad(100);
  model.SetMains(false);
  model.Advance(7min + 59s);
  EXPECT_EQ(FlagsOf(model), "10000000");
  model.Advance(2s);
  EXPECT_EQ(FlagsOf(model), "11000000");
  model.SetLoad(50);
  model.Advance(4min);
  EXPECT_EQ(Status(model), "(000.0 000.0 000.0 000 00.0 1.67 28.5 11000000\r");
  model.SetMains(true);
  model.Advance(101min);
  EXPECT_EQ(Status(model), "(220.5 000.0 220.0 050 50.0 2.27 28.5 00000000\r");
}

/// Whether a shutdown counts, whether the output is on, and the numbers of shutdowns and restarts.
std::string OutputOf(UpsModel& model) {
  const std::string status = Status(model), state = model.StateAsJson();
  const std::string counts = status[44] == '1' ? "counts," : "";
  const std::string output = status.substr(13, 5) == "000.0" ? "dark," : "lit,";
  return counts + output + state[state.find("shutdowns") + 11] + "/" +
         state[state.find("restarts") + 10];
}

/// The words of a script are commands without a reply, the seconds that go by ("+60"), the mains'
/// state, whether a test runs ("?1"), and what OutputOf is ("=lit,0/0").
TEST(UpsModel, ObeysScripts) {
  for (const char* script :
       {"q1 TX T0 T. CTL QQ S SR0001 S1R Sxx S-1 ?0 +99999 =lit,0/0",
        // A test lasts its time, no longer than the battery, and needs mains and output.
        "T ?1 +9.999 ?1 +0.001 ?0", "T2 +119.999 ?1 +0.001 ?0", "TL +1371 ?1 +1 ?0", "T5 CT ?0",
        "off T ?0 on ?0", "T5 S00 ?0 C ?0",
        "S02 +119.999 =counts,lit,0/0 +0.001 =dark,1/0 +36000 =dark,1/0 C =lit,1/1",
        "S01R0002 +60 =dark,1/0 +119.999 =dark,1/0 +0.001 =lit,1/1",
        "S05 +299 C =lit,0/0 +3600 =lit,0/0",
        "S01R9999 +700000 =dark,1/0 off on =lit,1/1",  // untimed: after the next outage
        "off S01 +30 on +30 =dark,1/0"}) {             // mains alone do not cancel
    SCOPED_TRACE(script);
    UpsModel model{{}};
    std::istringstream words(script);
    for (std::string word; words >> word;) {
      if (word.front() == '+') {
        model.Advance(std::chrono::milliseconds(static_cast<int>(std::stod(word) * 1000 + 0.5)));
      } else if (word.front() == '?') {
        EXPECT_EQ(FlagsOf(model)[5], word[1]) << "at position " << words.tellg();
      } else if (word.front() == '=') {
        EXPECT_EQ("=" + OutputOf(model), word) << "at position " << words.tellg();
      } else if (word == "on" || word == "off") {
        model.SetMains(word == "on");
      } else {
        EXPECT_FALSE(model.Handle(word)) << word;
      }
    }
  }
}

}  // namespace
}  // namespace simulator
