// The unit without any line: its replies column by column, its battery, tests and shutdowns.

#include "simulator/ups_model.h"

#include <gtest/gtest.h>

#include <sstream>

namespace simulator {
namespace {

using namespace std::chrono_literals;

UnitDescription OffLine(double ratedBattery) {
  return {.type = UnitType::OffLine, .ratedBatteryVoltage = ratedBattery};
}
std::string Status(UpsModel& model) { return model.Handle("Q1").value_or(""); }
std::string FlagsOf(UpsModel& model) { return Status(model).substr(38, 8); }
std::string VoltageOf(UpsModel& model) { return Status(model).substr(28, 4); }

TEST(UpsModel, RepliesInFixedColumns) {
  UpsModel usual{{}}, offLine(OffLine(24)), high{{}}, low{{}};
  EXPECT_EQ(usual.Handle("Q1"), "(220.5 220.5 220.0 035 50.0 2.27 28.5 00000000\r");
  EXPECT_EQ(usual.Handle("F"), "#220.0 004 24.00 50.0\r");
  EXPECT_EQ(usual.Handle("I"), "#VAREK           SIM-1000   V1.00     \r");
  EXPECT_FALSE(usual.Handle("\"\\\x01\xff"));
  EXPECT_TRUE(usual.StateAsJson().ends_with(R"("lastCommand":"\"\\\u0001\u00ff"})"));
  EXPECT_EQ(offLine.Handle("Q1"), "(220.5 220.5 220.5 035 50.0 27.3 28.5 00001000\r");
  offLine.SetMains(false);
  EXPECT_EQ(offLine.Handle("Q1"), "(000.0 000.0 220.0 035 50.0 27.3 28.5 10001000\r");
  high.SetFault(true), high.SetLoad(5000), high.SetTemperature(200);
  EXPECT_EQ(high.Handle("Q1"), "(220.5 220.5 220.0 999 50.0 2.27 99.9 00010000\r");
  low.SetLoad(-1), low.SetTemperature(-5), low.SetCharge(-1);
  EXPECT_EQ(low.Handle("Q1"), "(220.5 220.5 220.0 000 50.0 1.67 00.0 01000000\r");

  UnitDescription unit = OffLine(120);
  unit.company = "A company of more than fifteen";
  unit.model = "";
  unit.ratedVoltage = 1000.4;
  unit.ratedCurrent = 12345;
  UpsModel wide(unit);
  EXPECT_EQ(wide.Handle("Q1"), "(01001 01001 01001 035 50.0 0136 28.5 00001000\r");
  EXPECT_EQ(wide.Handle("F"), "#01000 999 120.0 50.0\r");
  EXPECT_EQ(wide.Handle("I"), "#A company of mo            V1.00     \r");
}

TEST(UpsModel, ReportsVoltageThatReadsAsTheCharge) {
  UpsModel onLine{{}}, offLine(OffLine(36));
  std::string cell, blocks;
  for (double percent : {0, 50, 90, 94, 96}) {  // What is above 90 reads as full.
    onLine.SetCharge(percent), offLine.SetCharge(percent);
    cell += VoltageOf(onLine) + " ", blocks += VoltageOf(offLine) + " ";
  }
  EXPECT_EQ(cell, "1.67 1.97 2.21 2.21 2.25 ");
  EXPECT_EQ(blocks, "30.0 35.4 39.8 39.8 40.4 ");
}

TEST(UpsModel, DrainsWithTheLoadAndCharges) {
  UpsModel model({.runtimeMinutes = 10, .chargeMinutes = 100});
  model.SetLoad(100);
  model.SetMains(false);
  model.Advance(7min + 59s);
  EXPECT_EQ(FlagsOf(model), "10000000");
  model.Advance(2s);
  EXPECT_EQ(FlagsOf(model), "11000000");
  model.SetBatteryLow(BatteryLowMode::Off);
  EXPECT_EQ(FlagsOf(model), "10000000");
  model.SetBatteryLow(BatteryLowMode::Auto);
  model.SetLoad(0);  // holds the charge
  model.Advance(24h);
  model.SetLoad(50);
  model.Advance(3min + 50s);
  EXPECT_EQ(Status(model).substr(0, 24), "(000.0 000.0 220.0 050 5");
  model.Advance(10s);
  EXPECT_EQ(Status(model), "(000.0 000.0 000.0 000 00.0 1.67 28.5 11000000\r");
  model.SetMains(true);
  EXPECT_EQ(Status(model), "(220.5 000.0 220.0 050 50.0 1.67 28.5 01000000\r");
  model.Advance(21min);
  EXPECT_EQ(FlagsOf(model), "00000000");
  model.Advance(80min);
  EXPECT_EQ(VoltageOf(model), "2.27");
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
/// state, battery low as told, whether a test runs ("?1"), and what OutputOf is ("=lit,0/0").
TEST(UpsModel, ObeysScripts) {
  for (const char* script :
       {"q1 TX T0 T12345 T. CTL QQ S SR0001 S1R Sxx S12345 S-1 S01r0001 ?0 +99999 =lit,0/0",
        // A test lasts its time, no longer than the battery, and needs mains and output.
        "T ?1 +9.999 ?1 +0.001 ?0", "T2 +119.999 ?1 +0.001 ?0", "T.5 +29.999 ?1 +0.001 ?0",
        "TL +1371 ?1 +1 ?0", "TL ?1 low +0.1 ?0", "T99 +1714 ?1 +1 ?0", "T5 +60 T ?1 +10 ?0",
        "T5 CT ?0", "TL CT ?0", "off T ?0 TL ?0 on ?0", "T5 off ?0 on ?0", "S00 T ?0",
        "T5 S00 ?0 C ?0",
        "S02 +119.999 =counts,lit,0/0 +0.001 =dark,1/0 +36000 =dark,1/0 C =lit,1/1",
        "S01R0002 +60 =dark,1/0 +119.999 =dark,1/0 +0.001 =lit,1/1", "S01R0002 +180 =lit,1/1",
        "S00R0001 =dark,1/0 +60 =lit,1/1", "S.2 +11.999 =counts,lit,0/0 +0.001 =dark,1/0",
        "S100 +5999 =counts,lit,0/0 +1 =dark,1/0", "S05 +299 C =lit,0/0 +3600 =lit,0/0",
        "S05R0001 S01 +60 =dark,1/0 +3600 =dark,1/0",    // the later order counts as a whole
        "S00R0001 S05 +60 =lit,1/1 +300 =lit,1/1",       // none while there is no output
        "S01R0001 +60 off +3600 =dark,1/0 on =lit,1/1",  // due without mains: waits for them
        "S00R0010 off +60 on =dark,1/0 +540 =lit,1/1",   // mains back early: keeps its time
        "S01R9999 +700000 =dark,1/0 off on =lit,1/1",    // untimed: after the next outage
        "S00 off C =dark,1/0 on =lit,1/1",               // nothing to switch on to
        "off S01 +30 on +30 =dark,1/0"}) {               // mains alone do not cancel
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
      } else if (word == "low") {
        model.SetBatteryLow(BatteryLowMode::On);
      } else {
        EXPECT_FALSE(model.Handle(word)) << word;
      }
    }
  }
}

}  // namespace
}  // namespace simulator
