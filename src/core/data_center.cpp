#include "core/data_center.h"

#include <cmath>

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
  const auto volts = static_cast<int>(platform::RoundHalfEven(DataCenter.RatingBatteryVoltage));
  const int blocks = volts / kVoltsPerBlock;
  return blocks < 0 ? 1 : blocks;
}

bool IsTooHot() { return GetTemperature() > (DataCenter.UseCelsius ? 60.0F : 140.0F); }

}  // namespace

float GetRatingVoltage() { return DataCenter.RatingVoltage; }
int16_t GetRatingCurrent() { return DataCenter.RatingCurrent; }
float GetRatingBatteryVoltage() { return DataCenter.RatingBatteryVoltage; }
float GetRatingFrequency() { return DataCenter.RatingFrequency; }
std::string GetUPSCompany() { return DataCenter.UPSCompany; }
std::string GetUPSModel() { return DataCenter.UPSModel; }
std::string GetUPSVersion() { return DataCenter.UPSVersion; }
float GetInputVoltage() { return DataCenter.InputVoltage; }
float GetOutputVoltage() { return DataCenter.OutputVoltage; }
float GetLoadPercent() { return DataCenter.LoadPercent; }
std::string GetFrequency() { return platform::SingleText(DataCenter.Frequency); }
float GetBatteryVoltage() { return DataCenter.BatteryVoltage; }

float GetTemperature() {
  if (DataCenter.UseCelsius) return DataCenter.Temperature;
  return static_cast<float>(std::trunc((DataCenter.Temperature * 1.8 + 32) * 10) / 10);
}

bool GetUtility() { return DataCenter.Utility; }
bool GetBatLow() { return DataCenter.BatLow; }
bool GetBypass() { return DataCenter.Bypass; }
bool GetUPSFailed() { return DataCenter.UPSFailed; }
bool GetUPStype() { return DataCenter.UPStype; }
bool GetTestProgress() { return DataCenter.TestProgress; }
bool GetShutdownActive() { return DataCenter.ShutdownActive; }
bool GetBeeper() { return DataCenter.Beeper; }

std::string GetTodayText() { return platform::FormatDayName(platform::Now()); }

bool GetIsConnect() { return DataCenter.IsConnect; }
void SetIsConnect(bool value) { DataCenter.IsConnect = ToFlag(value); }
bool GetDatabaseReady() { return DataCenter.DatabaseReady; }
bool GetHasTemperature() { return DataCenter.HasTemperature; }
void SetHasTemperature(bool value) { DataCenter.HasTemperature = ToFlag(value); }
bool GetHasLoad() { return DataCenter.HasLoad; }
void SetHasLoad(bool value) { DataCenter.HasLoad = ToFlag(value); }

void DeriveCapabilities() {
  const std::string& version = DataCenter.UPSVersion;
  const bool bare = version.starts_with(kBareSeries) || version.empty() || !DataCenter.IsConnect;
  SetHasLoad(!bare);
  SetHasTemperature(!bare && !DataCenter.UPStype);
}

int16_t GetUPSStage() {
  if (!DataCenter.IsConnect) return 1;
  // Each later rule overrides the ones before it.
  int16_t stage = 0;
  if (BatteryPercent(DataCenter.BatteryVoltage) < 99 && !DataCenter.Utility) stage = 2;
  if (DataCenter.TestProgress) stage = 3;
  if (IsTooHot()) stage = 4;
  if (DataCenter.UPSFailed) stage = 5;
  if (DataCenter.Utility == kSet) stage = DataCenter.BatLow == kSet ? 8 : 7;
  return GetLoadPercent() > 100 ? 6 : stage;
}

int BatteryPercent(float voltage) {
  if (!DataCenter.UPStype) return LevelOnScale(voltage, kCellScale);
  const int blocks = BatteryBlocks();
  if (blocks == 0) return 0;
  return LevelOnScale(voltage / static_cast<float>(blocks), kBlockScale);
}

std::string GetLanguageIndex() { return std::to_string(DataCenter.LanguageIndex); }
std::string GetWebLanguageFolder() { return DataCenter.WebLanguageFolder; }

void SetLanguageIndex(int16_t value) {
  static const std::array<std::string, 3> kFolders{"httpEnglish\\", "httpBig5\\", "httpGB232\\"};
  DataCenter.LanguageIndex = value;
  if (value >= 0 && static_cast<size_t>(value) < kFolders.size()) {
    DataCenter.WebLanguageFolder = kFolders[static_cast<size_t>(value)];
  }
}

void ClearLiveValues() {
  DataCenter.InputVoltage = 0;
  DataCenter.InputFaultVoltage = 0;
  DataCenter.OutputVoltage = 0;
  DataCenter.LoadPercent = 0;
  DataCenter.Frequency = 0;
  DataCenter.BatteryVoltage = 0;
  DataCenter.Temperature = 0;
  DataCenter.RatingVoltage = 0;
  DataCenter.RatingCurrent = 0;
  DataCenter.RatingBatteryVoltage = 0;
  DataCenter.RatingFrequency = 0;
  DataCenter.UPSCompany.clear();
  DataCenter.UPSModel.clear();
  DataCenter.UPSVersion.clear();
}

}  // namespace varek
