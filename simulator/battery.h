// The battery of the unit: a charge that goes down with the load and up on mains, and the voltage
// that the unit reports for it.
#pragma once

#include <chrono>

#include "simulator/unit_description.h"

namespace simulator {

class Battery final {
 public:
  /// Starts full. Both times in minutes, above 0: `runtime` from full to empty at 100 percent load,
  /// `charge` from empty to full.
  Battery(double runtime, double charge);

  void Drain(std::chrono::milliseconds time, double loadPercent);
  void Charge(std::chrono::milliseconds time);

  double Percent() const { return percent_; }
  /// Clamps to 0 to 100.
  void SetPercent(double percent);
  bool Empty() const { return percent_ <= 0; }

 private:
  double runtime_;
  double charge_;
  double percent_ = 100;
};

/// Volts that the unit shows at a charge of `percent`: of one cell for an on-line unit, of the
/// string for an off-line one, whose count of blocks follows from the rating.
double ReportedVoltage(double percent, const UnitDescription& unit);

}  // namespace simulator
