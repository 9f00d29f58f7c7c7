#include "core/data_center.h"

#include <cmath>

#include "core/temperature.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"

namespace varek {

DataCenterRecord DataCenter;

namespace {

/// Units of this series report neither temperature nor load.
constexpr char kBareSeries[] = "QZ0";

/// A battery scale: its two ends in volts, and the level that its upper end reads. The level
/// itself is computed with the exact ends, the ends are compared as singles.
struct BatteryScale {
  double empty;
  double full;
  double levelAtFull;
};

constexpr BatteryScale kCellScale{1.67, 2.21, 90};
constexpr BatteryScale kBlockScale{10, 13.3, 91};
constexpr int kVoltsPerBlock = 12;

int LevelOnScale(float voltage, const BatteryScale& scale) {
  if (voltage > static_cast<float>(scale.full)) return 100;
  if (voltage < static_cast<float>(scale.empty)) return 0;
  const double level =
      (voltage - scale.empty) / (scale.full - scale.empty) * scale.levelAtFull + 0.45;
  return static_cast<int>(std::floor(level));
}

int BatteryBlocks() {
  const auto volts =
      static_cast<int>(platform::RoundHalfEven(DataCenter.ratings.RatingBatteryVoltage));
  const int blocks = volts / kVoltsPerBlock;
  return blocks < 0 ? 1 : blocks;
}

bool IsTooHot() { return GetTemperature() > (DataCenter.settings.UseCelsius ? 60.0F : 140.0F); }

}  // namespace

float GetLoadPercent() { return DataCenter.readings.LoadPercent; }
std::string GetFrequency() { return platform::SingleText(DataCenter.readings.Frequency); }

float GetTemperature() {
  if (DataCenter.settings.UseCelsius) return DataCenter.readings.Temperature;
  return static_cast<float>(std::trunc(Fahrenheit(DataCenter.readings.Temperature) * 10) / 10);
}

std::string GetTodayText() { return platform::FormatDayName(platform::Now()); }

void DeriveCapabilities() {
  const std::string& version = DataCenter.identity.UPSVersion;
  const bool bare = version.starts_with(kBareSeries) || version.empty() || !DataCenter.IsConnect;
  DataCenter.HasLoad = ToFlag(!bare);
  DataCenter.HasTemperature = ToFlag(!bare && !DataCenter.flags.UPStype);
}

int16_t GetUPSStage() {
  if (!DataCenter.IsConnect) return 1;
  // Each later rule overrides the ones before it.
  int16_t stage = 0;
  if (BatteryPercent(DataCenter.readings.BatteryVoltage) < 99 && !DataCenter.flags.Utility)
    stage = 2;
  if (DataCenter.flags.TestProgress) stage = 3;
  if (IsTooHot()) stage = 4;
  if (DataCenter.flags.UPSFailed) stage = 5;
  if (DataCenter.flags.Utility == kSet) stage = DataCenter.flags.BatLow == kSet ? 8 : 7;
  return GetLoadPercent() > 100 ? 6 : stage;
}

int BatteryPercent(float voltage) {
  if (!DataCenter.flags.UPStype) return LevelOnScale(voltage, kCellScale);
  const int blocks = BatteryBlocks();
  if (blocks == 0) return 0;
  return LevelOnScale(voltage / static_cast<float>(blocks), kBlockScale);
}

std::string GetLanguageIndex() { return std::to_string(DataCenter.settings.LanguageIndex); }

void SetLanguageIndex(int16_t value) {
  static const std::array<std::string, 3> kFolders{"httpEnglish\\", "httpBig5\\", "httpGB232\\"};
  DataCenter.settings.LanguageIndex = value;
  if (value >= 0 && static_cast<size_t>(value) < kFolders.size()) {
    DataCenter.settings.WebLanguageFolder = kFolders[static_cast<size_t>(value)];
  }
}

void ClearLiveValues() {
  DataCenter.readings = {};
  DataCenter.ratings = {};
  DataCenter.identity = {};
}

}  // namespace varek
