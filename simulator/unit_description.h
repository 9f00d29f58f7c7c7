// What a unit is, as opposed to how it fares: its kind, its identification texts and its ratings.
#pragma once

#include <string>

namespace simulator {

/// An on-line unit feeds its load from the inverter at all times and reports the voltage of one
/// battery cell; an off-line unit passes the mains on and reports the voltage of the whole string.
enum class UnitType { OnLine, OffLine };

struct UnitDescription {
  UnitType type = UnitType::OnLine;

  /// Printable ASCII; what is longer than its column is cut.
  std::string company = "VAREK";
  std::string model = "SIM-1000";
  std::string version = "V1.00";

  double ratedVoltage = 220.0;         ///< volts, 0 to 999.9
  double ratedCurrent = 4;             ///< amperes, 0 to 999
  double ratedBatteryVoltage = 24.00;  ///< volts, 0 to 999.9; a block has 12
  double ratedFrequency = 50.0;        ///< hertz, 0 to 99.9

  double runtimeMinutes = 10;  ///< from full to empty at 100 percent load, above 0
  double chargeMinutes = 240;  ///< from empty to full on mains, above 0
};

constexpr int kCompanyWidth = 15;
constexpr int kModelWidth = 10;
constexpr int kVersionWidth = 10;

}  // namespace simulator
