#include "drawing/instruments.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/text/text.h"

namespace varek {

namespace {

/// Four decimals, not a full pi: the pictures' scales are drawn with it too.
constexpr double kPi = 3.1415;
constexpr double kFraction = 5;  ///< of the way for each frame
constexpr double kStartPosition = 120;
constexpr double kBarStep = 3;  ///< rows for each frame
constexpr double kMainTail = 10;
constexpr double kRightTail = 5;
constexpr double kRightTailAtRest = 35;
constexpr float kRestingReading = 20;
constexpr int kLargestOfSmall = 779;
constexpr int kLargestOfMiddle = 1023;

double Radians(double angle) { return angle / 180 * kPi; }

double Towards(double position, double target, double step) {
  if (position < target) return position + step;
  if (position > target) return position - step;
  return position;
}

}  // namespace

const std::array<SizeClass, 3> kSizeClasses{{
    {"640", 531, 340, 0.8F, 1, 1},
    {"800", 664, 425, 1.0F, 0, 3},
    {"1024", 850, 540, 1.28F, 2, 6},
}};

const std::array<Dial, 4> kDials{{
    {kInputDial, Needle::Main, 300, 120, 420, 260, 250, 100},
    {kOutputDial, Needle::Left, 260, 90, 270, 101, 246, 60},
    {kFrequencyDial, Needle::Right, 100, 90, 270, 415, 255, 60},
    {kTemperatureDial, Needle::Main, 150, 120, 420, 374, 62, 30},
}};

const Bar kBatteryWithLoad{kBatteryBar, 100, 605, 28};
const Bar kLoad{kLoadBar, 120, 537, 28};
const Bar kBatteryAlone{kBatteryBar, 100, 558, 28};

const SizeClass& ChooseSizeClass(int clientWidth) {
  if (clientWidth <= kLargestOfSmall) return kSizeClasses[0];
  if (clientWidth <= kLargestOfMiddle) return kSizeClasses[1];
  return kSizeClasses[2];
}

float FitScale(int clientWidth, int clientHeight, const SizeClass& sizeClass) {
  const float wide = static_cast<float>(clientWidth) / static_cast<float>(sizeClass.designWidth);
  const float high = static_cast<float>(clientHeight) / static_cast<float>(sizeClass.designHeight);
  const float fit = std::min(wide, high);
  return fit > 0.95F && fit < 1.09F ? 1.0F : fit;
}

const Dial& DialOf(Instrument index) {
  return *std::find_if(kDials.begin(), kDials.end(),
                       [index](const Dial& dial) { return dial.index == index; });
}

int16_t ToPixels(double units, double factor) { return platform::RoundToInt16(units * factor); }

double TargetAngle(double value, double fullScale, double startAngle, double endAngle) {
  return value / fullScale * (endAngle - startAngle) + startAngle;
}

Point OnDial(Needle needle, Point centre, double angle, double radius) {
  const double across = std::cos(Radians(angle)) * radius;
  const double down = std::sin(Radians(angle)) * radius;
  return {needle == Needle::Right ? centre.x - across : centre.x + across, centre.y + down};
}

Needles::Needles() : NeedleTarget{0, 90, 120, 0, 120, 120} { NeedlePosition.fill(kStartPosition); }

NeedleLine Needles::MoveMain(float value, int index, float fullScale, float startAngle,
                             float endAngle, Point centre, double length) {
  double& position = NeedlePosition.at(static_cast<size_t>(index));
  double& target = NeedleTarget.at(static_cast<size_t>(index));
  target = TargetAngle(value, fullScale, startAngle, endAngle);
  position += (target - position) / kFraction;
  return {OnDial(Needle::Main, centre, position, -kMainTail),
          OnDial(Needle::Main, centre, position, length)};
}

NeedleLine Needles::MoveLeft(float value, int index, float fullScale, float startAngle,
                             float endAngle, Point centre, double length) {
  double& position = NeedlePosition.at(static_cast<size_t>(index));
  double& target = NeedleTarget.at(static_cast<size_t>(index));
  NeedleStep = std::abs(target - position) / kFraction;
  target = TargetAngle(value, fullScale, startAngle, endAngle);
  if (std::abs(target - position) < NeedleStep) position = target;
  position = Towards(position, target, NeedleStep);
  return {centre, OnDial(Needle::Left, centre, position, length)};
}

NeedleLine Needles::MoveRight(float value, int index, float fullScale, float startAngle,
                              float endAngle, Point centre, double length) {
  double& position = NeedlePosition.at(static_cast<size_t>(index));
  double& target = NeedleTarget.at(static_cast<size_t>(index));
  NeedleStep = (target - position) / kFraction;
  target = TargetAngle(value, fullScale, startAngle, endAngle);
  position += NeedleStep;
  const double tail = value > kRestingReading ? kRightTail : kRightTailAtRest;
  return {OnDial(Needle::Right, centre, position, tail),
          OnDial(Needle::Right, centre, position, length)};
}

Needles::BarPart Needles::MoveBar(float value, int index, float fullScale, double bottom,
                                  double top, int x, int y, double scale, const BarSize& picture) {
  double& position = NeedlePosition.at(static_cast<size_t>(index));
  double& target = NeedleTarget.at(static_cast<size_t>(index));
  NeedleStep = kBarStep;
  target = TargetAngle(value, fullScale, bottom, top);
  if (std::abs(target - position) < kBarStep) position = target;
  position = Towards(position, target, NeedleStep);
  const double hidden = std::floor(picture.height - position);
  const double bottomEdge = std::floor(picture.height * scale + y);
  const double topEdge = std::floor(hidden * scale + y) + kBarTopGap;
  return {
      {0, hidden, picture.width - 1.0, position},
      {static_cast<double>(x + kBarInset), topEdge, picture.width * scale, bottomEdge - topEdge}};
}

}  // namespace varek
