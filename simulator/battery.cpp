#include "simulator/battery.h"

#include <algorithm>
#include <cmath>

namespace simulator {

namespace {

/// Volts at which a cell or a block counts as empty, and what it gains up to `spanPercent`, where
/// monitors see the end of their linear scale. A voltage beyond that end is read as full.
struct VoltageScale {
  double empty;
  double span;
  double spanPercent;
};

constexpr VoltageScale kCell{1.67, 0.54, 90};
constexpr VoltageScale kBlock{10.0, 3.3, 91};
constexpr double kBlockVolts = 12;

/// Between these a reading jumps from about 90 to 100, so the nearer side is taken.
constexpr double kScaleEndPercent = 90;
constexpr double kReadsFullPercent = 95;

double Minutes(std::chrono::milliseconds time) {
  return std::chrono::duration<double, std::ratio<60>>(time).count();
}

double VoltageAt(const VoltageScale& scale, double percent) {
  if (percent < kReadsFullPercent) percent = std::min(percent, kScaleEndPercent);
  return scale.empty + scale.span * percent / scale.spanPercent;
}

}  // namespace

Battery::Battery(double runtime, double charge) : runtime_(runtime), charge_(charge) {}

void Battery::Drain(std::chrono::milliseconds time, double loadPercent) {
  SetPercent(percent_ - loadPercent * Minutes(time) / runtime_);
}

void Battery::Charge(std::chrono::milliseconds time) {
  SetPercent(percent_ + 100 * Minutes(time) / charge_);
}

void Battery::SetPercent(double percent) { percent_ = std::clamp(percent, 0.0, 100.0); }

double ReportedVoltage(double percent, const UnitDescription& unit) {
  if (unit.type == UnitType::OnLine) return VoltageAt(kCell, percent);
  const double blocks =
      std::max(1.0, std::floor(std::round(unit.ratedBatteryVoltage) / kBlockVolts));
  return blocks * VoltageAt(kBlock, percent);
}

}  // namespace simulator
