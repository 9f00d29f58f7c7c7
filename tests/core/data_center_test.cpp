// The live state: battery level, status code, temperature.

#include "core/data_center.h"

#include <gtest/gtest.h>

namespace varek {
namespace {

class DataCenterTest : public testing::Test {
 protected:
  DataCenterTest() { DataCenter = DataCenterRecord(); }
};

TEST_F(DataCenterTest, BatteryPercentFollowsTheScaleOfTheUnit) {
  struct Case {
    Flag offLine;
    float rating, voltage;
    int percent;
  };
  const Case cases[] = {
      // An on-line unit reports a cell: the top of the scale reads 90, only above it 100.
      {kClear, 0, 2.21F, 90},
      {kClear, 0, 2.2101F, 100},
      {kClear, 0, 1.67F, 0},
      {kClear, 0, 1.94F, 45},
      {kClear, 0, 0, 0},
      // An off-line unit reports the whole string, in blocks of 12 V: the top reads 91.
      {kSet, 24, 27, 100},
      {kSet, 24, 26.6F, 91},
      {kSet, 24, 19.9F, 0},
      {kSet, 24, 23.3F, 45},
      {kSet, 12, 13, 83},
      {kSet, 35.4F, 26, 83},      // 35 V are two blocks
      {kSet, 11.6F, 13.4F, 100},  // rounded to 12 V, one block
      {kSet, 11.4F, 13, 0},       // below a block
      {kSet, 0, 27, 0},           // rating not received yet
  };
  for (const Case& c : cases) {
    DataCenter.flags.UPStype = c.offLine;
    DataCenter.ratings.RatingBatteryVoltage = c.rating;
    EXPECT_EQ(BatteryPercent(c.voltage), c.percent)
        << (c.offLine ? "off-line " : "on-line ") << c.rating << " V, " << c.voltage << " V";
  }
}

TEST_F(DataCenterTest, LaterStagesOverrideEarlierOnes) {
  struct Case {
    const char* name;
    int stage;
    float battery, celsius;
    int load;
    std::string set;  ///< c Celsius, t test, f fault, u mains failed, l battery low, - no link
  };
  const Case cases[] = {
      {"normal", 0, 2.3F, 25, 10, "c"},
      {"charging", 2, 2, 25, 10, "c"},
      {"test while charging", 3, 2, 25, 10, "ct"},
      {"exactly 60 degrees", 0, 2.3F, 60, 10, "c"},
      {"above 60 degrees, in a test", 4, 2.3F, 60.1F, 10, "ct"},
      {"exactly 140 Fahrenheit", 0, 2.3F, 60, 10, ""},
      {"above 140 Fahrenheit", 4, 2.3F, 60.1F, 10, ""},
      {"fault while hot", 5, 2.3F, 70, 10, "cf"},
      {"on battery, no charging", 7, 2, 25, 10, "cu"},
      {"on battery and low", 8, 2.3F, 25, 10, "cul"},
      {"battery low on mains", 0, 2.3F, 25, 10, "cl"},
      {"load 100", 0, 2.3F, 25, 100, "c"},
      {"overload above all", 6, 2.3F, 25, 101, "cul"},
      {"no link", 1, 2.3F, 25, 101, "cul-"},
  };
  for (const Case& c : cases) {
    const auto flag = [&c](char letter) { return ToFlag(c.set.find(letter) != c.set.npos); };
    DataCenter.readings.BatteryVoltage = c.battery;
    DataCenter.readings.Temperature = c.celsius;
    DataCenter.readings.LoadPercent = static_cast<int16_t>(c.load);
    DataCenter.settings.UseCelsius = flag('c');
    DataCenter.flags.TestProgress = flag('t');
    DataCenter.flags.UPSFailed = flag('f');
    DataCenter.flags.Utility = flag('u');
    DataCenter.flags.BatLow = flag('l');
    DataCenter.IsConnect = ToFlag(!flag('-'));
    EXPECT_EQ(GetUPSStage(), c.stage) << c.name;
  }
}

TEST_F(DataCenterTest, FahrenheitIsCutAndCelsiusIsNot) {
  DataCenter.readings.Temperature = 30.15F;
  EXPECT_FLOAT_EQ(GetTemperature(), 86.2F);
  DataCenter.settings.UseCelsius = kSet;
  EXPECT_FLOAT_EQ(GetTemperature(), 30.15F);
}

}  // namespace
}  // namespace varek
