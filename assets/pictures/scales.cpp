#include "pictures/scales.h"

#include <algorithm>
#include <cmath>

namespace varek {

namespace {

constexpr int kNoAlarm = 101;  ///< beyond the scale

Point Place(const DialScale& scale, int value, double radius, double factor) {
  const Dial& dial = DialOf(scale.dial);
  return OnDial(dial, factor, TargetAngle(dial, value), radius * factor);
}

}  // namespace

// The needles are 100, 60, 60 and 30 long: they end short of the ticks.
const std::array<DialScale, 4> kDialScales{{
    {kInputDial, "V", 10, 50, 50, 118, 113, 111, 105, 101, 88, 11},
    {kOutputDial, "V", 10, 50, 50, 90, 86, 84, 78, 74, 61, 11},
    {kFrequencyDial, "Hz", 2, 10, 20, 90, 86, 84, 78, 74, 62, 11},
    {kTemperatureDial, "", 10, 50, 50, 48, 44, 43, 39, 36, 25, 9},
}};

const BarScale kLoadScale{kLoad, 5, 20, 80, 100};
const BarScale kBatteryWithLoadScale{kBatteryWithLoad, 5, 20, 80, kNoAlarm};
const BarScale kBatteryAloneScale{kBatteryAlone, 5, 20, 80, kNoAlarm};

int FullScale(const DialScale& scale) { return static_cast<int>(DialOf(scale.dial).fullScale); }

Tick DialTick(const DialScale& scale, int value, double factor) {
  const double start = value % scale.majorStep == 0 ? scale.majorStart : scale.minorStart;
  return {Place(scale, value, start, factor), Place(scale, value, scale.tickEnd, factor)};
}

Point NumeralPlace(const DialScale& scale, int value, double factor) {
  return Place(scale, value, scale.numeralRadius, factor);
}

platform::Rect BarPlace(const Bar& bar, const SizeClass& sizeClass) {
  const BarSize& size = kBarSizes.at(static_cast<size_t>(sizeClass.barIndex));
  return {static_cast<double>(ToPixels(bar.frame.x, sizeClass.sizeFactor) + kBarInset),
          static_cast<double>(ToPixels(bar.frame.y, sizeClass.sizeFactor)),
          static_cast<double>(size.width), static_cast<double>(size.height)};
}

int BarTickRow(const Bar& bar, double percent, const SizeClass& sizeClass) {
  const platform::Rect place = BarPlace(bar, sizeClass);
  const double hidden = std::floor(place.height - TargetRows(bar, percent, place.height));
  return static_cast<int>(place.top + std::min(hidden + kBarTopGap, place.height));
}

}  // namespace varek
