// The unit without any line: its replies column by column, its battery, tests and shutdowns.

#include "simulator/ups_model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <sstream>
#include <string>

namespace simulator {
namespace {

using namespace std::chrono_literals;

UnitDescription OffLine(double ratedBattery) {
  UnitDescription unit;
  unit.type = UnitType::OffLine;
  unit.ratedBatteryVoltage = ratedBattery;
  return unit;
}

std::string Status(UpsModel& model) { return model.Handle("Q1").value_or(""); }
std::string OutputOf(UpsModel& model) { return Status(model).substr(13, 5); }
std::string FlagsOf(UpsModel& model) { return Status(model).substr(38, 8); }
double VoltageOf(UpsModel& model) { return std::stod(Status(model).substr(28, 4)); }

TEST(UpsModel, RepliesInFixedColumns) {
  UnitDescription odd = OffLine(120);
  odd.company = "A company of more than fifteen";
  odd.model = "";
  odd.version = "QZ0";
  odd.ratedVoltage = 1000.4;
  odd.ratedCurrent = 12345;
  odd.ratedFrequency = 60;
  const auto nothing = [](UpsModel&) {};

  const struct {
    UnitDescription unit;
    std::function<void(UpsModel&)> change;
    const char* command;
    const char* reply;
  } cases[] = {
      {{}, nothing, "Q1", "(220.5 220.5 220.0 035 50.0 2.27 28.5 00000000\r"},
      {{}, nothing, "F", "#220.0 004 24.00 50.0\r"},
      {{}, nothing, "I", "#VAREK           SIM-1000   V1.00     \r"},
      {OffLine(24), nothing, "Q1", "(220.5 220.5 220.5 035 50.0 27.3 28.5 00001000\r"},
      {OffLine(24), [](UpsModel& m) { m.SetMains(false); }, "Q1",
       "(000.0 000.0 220.0 035 50.0 27.3 28.5 10001000\r"},
      {{},
       [](UpsModel& m) { m.SetFault(true), m.SetLoad(5000), m.SetTemperature(200); },
       "Q1",
       "(220.5 220.5 220.0 999 50.0 2.27 99.9 00010000\r"},
      {{},
       [](UpsModel& m) { m.SetLoad(-1), m.SetTemperature(-5), m.SetCharge(-1); },
       "Q1",
       "(220.5 220.5 220.0 000 50.0 1.67 00.0 01000000\r"},
      {odd, nothing, "Q1", "(01001 01001 01001 035 60.0 0136 28.5 00001000\r"},
      {odd, nothing, "F", "#01000 999 120.0 60.0\r"},
      {odd, nothing, "I", "#A company of mo            QZ0       \r"},
  };
  for (const auto& c : cases) {
    UpsModel model(c.unit);
    c.change(model);
    EXPECT_EQ(model.Handle(c.command), c.reply);
  }
}

TEST(UpsModel, IgnoresWhatItDoesNotKnow) {
  UpsModel model{{}};
  const std::string before = Status(model);
  for (const char* command : {"", "q1", "Q1 ", "F\n", "TX", "T0", "T12345", "T.", "CTL", "QQ", "S",
                              "SR0001", "S1R", "Sxx", "S12345", "S-1", "S01r0001"}) {
    EXPECT_FALSE(model.Handle(command)) << command;
  }
  model.Advance(24h);
  EXPECT_EQ(Status(model), before);
}

// The level that a monitor computes from the voltage of a reply.
double LevelSeen(double voltage, const UnitDescription& unit) {
  if (unit.type == UnitType::OnLine) {
    return voltage > 2.21 ? 100 : std::floor((voltage - 1.67) / 0.54 * 90 + 0.45);
  }
  const double block = voltage / std::floor(unit.ratedBatteryVoltage / 12);
  return block > 13.3 + 1e-6 ? 100 : std::floor((block - 10) / 3.3 * 91 + 0.45);
}

TEST(UpsModel, ReportsVoltageThatReadsAsTheCharge) {
  for (const auto& unit : {UnitDescription{}, OffLine(12), OffLine(24), OffLine(36), OffLine(96)}) {
    UpsModel model(unit);
    for (int percent = 0; percent <= 100; ++percent) {
      model.SetCharge(percent);
      const double tolerance = percent > 90 ? 5 : 2;
      EXPECT_NEAR(LevelSeen(VoltageOf(model), unit), percent, tolerance)
          << "rated " << unit.ratedBatteryVoltage;
    }
    EXPECT_EQ(LevelSeen(VoltageOf(model), unit), 100);
  }
}

TEST(UpsModel, DrainsWithTheLoadAndCharges) {
  UnitDescription unit;
  unit.runtimeMinutes = 10;
  unit.chargeMinutes = 100;
  UpsModel model(unit);
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
  EXPECT_EQ(OutputOf(model), "220.0");
  model.Advance(10s);
  EXPECT_EQ(Status(model), "(000.0 000.0 000.0 000 00.0 1.67 28.5 11000000\r");

  model.SetMains(true);
  EXPECT_EQ(Status(model), "(220.5 000.0 220.0 050 50.0 1.67 28.5 01000000\r");
  model.Advance(21min);
  EXPECT_EQ(FlagsOf(model), "00000000");
  model.SetBatteryLow(BatteryLowMode::On);
  EXPECT_EQ(FlagsOf(model), "01000000");
  model.Advance(80min);
  EXPECT_EQ(VoltageOf(model), 2.27);
}

// Scripts of commands and of these words: "+SECONDS" lets time go by, "on" and "off" switch the
// mains, "low" is battery low as told, "?..." is what must be seen.
using Look = std::function<std::string(UpsModel&)>;

void RunScript(const char* script, const Look& look) {
  SCOPED_TRACE(script);
  UpsModel model{{}};
  std::istringstream words(script);
  for (std::string word; words >> word;) {
    if (word.front() == '+') {
      model.Advance(std::chrono::milliseconds(std::lround(std::stod(word) * 1000)));
    } else if (word.front() == '?') {
      EXPECT_EQ("?" + look(model), word) << "at position " << words.tellg();
    } else if (word == "on" || word == "off") {
      model.SetMains(word == "on");
    } else if (word == "low") {
      model.SetBatteryLow(BatteryLowMode::On);
    } else {
      EXPECT_FALSE(model.Handle(word)) << word;
    }
  }
}

TEST(UpsModel, EndsTestsInTime) {
  const Look look = [](UpsModel& model) { return FlagsOf(model).substr(5, 1); };
  for (const char* script : {
           "T ?1 +9.999 ?1 +0.001 ?0", "T2 +119.999 ?1 +0.001 ?0", "T.5 +29.999 ?1 +0.001 ?0",
           "TL +3600 ?0",                 // 80 percent at a load of 35 last 23 minutes
           "TL +1371 ?1 +1 ?0",           // until then it runs
           "TL ?1 low +0.1 ?0",           // and ends early when told so
           "T99 +1714 ?1 +1 ?0",          // no longer than the battery lasts
           "T5 +60 T ?1 +10 ?0",          // the later one counts
           "T5 CT ?0", "TL CT ?0",        // cancelled
           "off T ?0 TL ?0 on ?0",        // none without mains
           "T5 off ?0 on ?0",             // a failure of the mains ends it
           "S00 T ?0", "T5 S00 ?0 C ?0",  // none without output
       }) {
    RunScript(script, look);
  }
}

TEST(UpsModel, CountsShutdownsAndRestarts) {
  // Whether a shutdown counts, whether the output is on, and the numbers of both so far.
  const Look look = [](UpsModel& model) {
    const std::string state = model.StateAsJson();
    const auto number = [&state](const std::string& name) {
      return std::to_string(
          std::stoi(state.substr(state.find('"' + name + "\":") + name.size() + 3)));
    };
    return std::string(FlagsOf(model)[6] == '1' ? "counts," : "") +
           (OutputOf(model) == "000.0" ? "dark," : "lit,") + number("shutdowns") + "/" +
           number("restarts");
  };
  for (const char* script : {
           "S02 +119.999 ?counts,lit,0/0 +0.001 ?dark,1/0 +36000 ?dark,1/0 C ?lit,1/1",
           "S01R0002 +60 ?dark,1/0 +119.999 ?dark,1/0 +0.001 ?lit,1/1",
           "S01R0002 +180 ?lit,1/1",                          // both moments in one step
           "S00R0001 ?dark,1/0 +60 ?lit,1/1",                 // at once
           "S.2 +11.999 ?counts,lit,0/0 +0.001 ?dark,1/0",    // tenths of a minute
           "S100 +5999 ?counts,lit,0/0 +1 ?dark,1/0",         // three digits
           "S05 +299 C ?lit,0/0 +3600 ?lit,0/0",              // cancelled
           "S05R0001 S01 +60 ?dark,1/0 +3600 ?dark,1/0",      // the later order counts as a whole
           "S00R0001 S05 +60 ?lit,1/1 +300 ?lit,1/1",         // none while there is no output
           "S01R0001 +60 off +3600 ?dark,1/0 on ?lit,1/1",    // due without mains: waits for them
           "S00R0010 off +60 on ?dark,1/0 +540 ?lit,1/1",     // mains back early: keeps its time
           "S01R9999 +700000 ?dark,1/0 off on ?lit,1/1",      // untimed: after the next outage
           "S00R9999 C ?lit,1/1", "off S01 +60 on ?lit,1/1",  //
           "S00 off C ?dark,1/0 on ?lit,1/1",                 // nothing to switch on to
           "off S01 +30 on +30 ?dark,1/0",                    // mains alone do not cancel
       }) {
    RunScript(script, look);
  }
}

TEST(UpsModel, PrintsItselfAsJson) {
  UpsModel model{{}};
  model.SetMains(false);
  model.Handle("Q");
  model.Handle("S01R0002");
  model.Advance(12s);
  model.Handle("\"\\\x01\xff");
  EXPECT_EQ(model.StateAsJson(),
            R"({"mains":false,"output":220,"load":35,"battery":99.3,"batteryVoltage":2.27,)"
            R"("temperature":28.5,"flags":"10000011","test":false,"testSeconds":0,)"
            R"("shutdown":true,"shutdownSeconds":48,"switchedOff":false,"restartSeconds":0,)"
            R"("shutdowns":0,"restarts":0,"beeper":true,"commands":3,)"
            R"("lastCommand":"\"\\\u0001\u00ff"})");
}

}  // namespace
}  // namespace simulator
