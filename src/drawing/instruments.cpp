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

Point TipOf(const Dial& dial, double position, const PanelScale& scale) {
  return OnDial(dial, scale.factor, position, ToPixels(dial.length, scale.factor));
}

}  // namespace

const SizeClass& ChooseSizeClass(int clientWidth) {
  if (clientWidth <= kLargestOfSmall) return kSizeClasses[0];
  if (clientWidth <= kLargestOfMiddle) return kSizeClasses[1];
  return kSizeClasses[2];
}

float FitScale(int width, int height, const SizeClass& sizeClass) {
  const float wide = static_cast<float>(width) / static_cast<float>(sizeClass.designWidth);
  const float high = static_cast<float>(height) / static_cast<float>(sizeClass.designHeight);
  const float fit = std::min(wide, high);
  return fit > 0.95F && fit < 1.09F ? 1.0F : fit;
}

PanelScale ChooseScale(int clientWidth, int width, int height) {
  const SizeClass& sizeClass = ChooseSizeClass(clientWidth);
  const float fit = FitScale(width, height, sizeClass);
  return {&sizeClass, fit, sizeClass.sizeFactor * fit};
}

const Dial& DialOf(Instrument index) {
  return *std::find_if(kDials.begin(), kDials.end(),
                       [index](const Dial& dial) { return dial.index == index; });
}

int16_t ToPixels(double units, double factor) { return platform::RoundToInt16(units * factor); }

double TargetAngle(const Dial& dial, double value) {
  return value / dial.fullScale * (dial.endAngle - dial.startAngle) + dial.startAngle;
}

double TargetRows(const Bar& bar, double value, double height) {
  return value / bar.fullScale * height;
}

Point DialCentre(const Dial& dial, double factor) {
  return {static_cast<double>(ToPixels(kDialOffset.x + dial.centre.x, factor)),
          static_cast<double>(ToPixels(kDialOffset.y + dial.centre.y, factor))};
}

Point OnDial(const Dial& dial, double factor, double angle, double radius) {
  const Point centre = DialCentre(dial, factor);
  const double across = std::cos(Radians(angle)) * radius;
  const double down = std::sin(Radians(angle)) * radius;
  return {dial.needle == Needle::Right ? centre.x - across : centre.x + across, centre.y + down};
}

Needles::Needles()
    : places_{{{kStartPosition, 0},
               {kStartPosition, 90},
               {kStartPosition, 120},
               {kStartPosition, 0},
               {kStartPosition, 120},
               {kStartPosition, 120}}} {}

NeedleLine Needles::MoveMain(const Dial& dial, float value, const PanelScale& scale) {
  auto& [position, target] = places_.at(static_cast<size_t>(dial.index));
  target = TargetAngle(dial, value);
  position += (target - position) / kFraction;
  return {OnDial(dial, scale.factor, position, -kMainTail), TipOf(dial, position, scale)};
}

NeedleLine Needles::MoveLeft(const Dial& dial, float value, const PanelScale& scale) {
  auto& [position, target] = places_.at(static_cast<size_t>(dial.index));
  const double step = std::abs(target - position) / kFraction;
  target = TargetAngle(dial, value);
  if (std::abs(target - position) < step) position = target;
  position = Towards(position, target, step);
  return {DialCentre(dial, scale.factor), TipOf(dial, position, scale)};
}

NeedleLine Needles::MoveRight(const Dial& dial, float value, const PanelScale& scale) {
  auto& [position, target] = places_.at(static_cast<size_t>(dial.index));
  const double step = (target - position) / kFraction;
  target = TargetAngle(dial, value);
  position += step;
  const double tail = value > kRestingReading ? kRightTail : kRightTailAtRest;
  return {OnDial(dial, scale.factor, position, tail), TipOf(dial, position, scale)};
}

BarPart Needles::MoveBar(const Bar& bar, float value, const PanelScale& scale) {
  const BarSize& picture = kBarSizes.at(static_cast<size_t>(scale.sizeClass->barIndex));
  auto& [position, target] = places_.at(static_cast<size_t>(bar.index));
  target = TargetRows(bar, value, picture.height);
  if (std::abs(target - position) < kBarStep) position = target;
  position = Towards(position, target, kBarStep);
  const double left = ToPixels(bar.frame.x, scale.factor) + kBarInset;
  const double top = ToPixels(bar.frame.y, scale.factor);
  const double hidden = std::floor(picture.height - position);
  const double bottomEdge = std::floor(picture.height * static_cast<double>(scale.fit) + top);
  const double topEdge = std::floor(hidden * scale.fit + top) + kBarTopGap;
  return {{0, hidden, picture.width - 1.0, position},
          {left, topEdge, picture.width * static_cast<double>(scale.fit), bottomEdge - topEdge}};
}

}  // namespace varek
