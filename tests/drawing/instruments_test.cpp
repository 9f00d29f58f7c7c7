// Needles and bars frame by frame, against values worked out by hand.
#include "drawing/instruments.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/errors/runtime_error.h"

namespace varek {
namespace {

/// The size that the panel is designed in.
const PanelScale kDesign = ChooseScale(800, 664, 425);

const Dial& kInput = DialOf(kInputDial);
const Dial& kOutput = DialOf(kOutputDial);
const Dial& kFrequency = DialOf(kFrequencyDial);

TEST(SizeClasses, FitWithoutScalingNearTheirDesign) {
  const SizeClass design{"", 1000, 1000, 1, 0, 1};
  const std::pair<int, float> fits[] = {{950, 0.95F}, {951, 1.0F}, {1089, 1.0F}, {1090, 1.09F}};
  for (const auto& [size, fit] : fits) {
    EXPECT_EQ(FitScale(size, 2000, design), fit) << size;
    EXPECT_EQ(FitScale(2000, size, design), fit) << size;
  }
}

/// Whether the needle of a dial stands at `angle`.
testing::AssertionResult StandsAt(const NeedleLine& line, const Dial& dial, double angle) {
  const Point tip = OnDial(dial, kDesign.factor, angle, dial.length);
  if (std::hypot(line.tip.x - tip.x, line.tip.y - tip.y) < 1e-4) return testing::AssertionSuccess();
  return testing::AssertionFailure() << line.tip.x << ", " << line.tip.y << " not at " << angle;
}

TEST(Needles, MoveByTheirThreeRules) {
  using Frame = std::pair<float, double>;  // value, angle
  Needles needles;
  // Input: 150 V asks for 270 degrees, 320 V for 440, past the end of the scale.
  const Frame main[] = {{150, 150}, {150, 174}, {150, 193.2}, {320, 242.56}};
  for (const auto& [value, angle] : main)
    EXPECT_TRUE(StandsAt(needles.MoveMain(kInput, value, kDesign), kInput, angle));
  for (int i = 0; i < 200; ++i) needles.MoveMain(kInput, 320, kDesign);
  EXPECT_TRUE(StandsAt(needles.MoveMain(kInput, 320, kDesign), kInput, 440));

  // Output: the first step is a fifth of the way to its starting target of 90; 130 V asks for 180.
  // The last frame's reading asks for 150, nearer than a step, and is reached at once.
  const Frame left[] = {{130, 126}, {130, 136.8}, {130, 145.44}, {260.0F / 3, 150}};
  for (const auto& [value, angle] : left)
    EXPECT_TRUE(StandsAt(needles.MoveLeft(kOutput, value, kDesign), kOutput, angle));

  // Frequency: the first step goes towards its starting target of 0; 50 Hz asks for 180.
  const Frame right[] = {{50, 96}, {50, 112.8}, {50, 126.24}, {0, 136.992}, {0, 127.5936}};
  for (const auto& [value, angle] : right)
    EXPECT_TRUE(StandsAt(needles.MoveRight(kFrequency, value, kDesign), kFrequency, angle));
}

TEST(Needles, PointWhereTheirScalesAre) {
  Needles needles;
  for (int i = 0; i < 300; ++i) {
    needles.MoveMain(kInput, 60, kDesign);
    needles.MoveLeft(kOutput, 130, kDesign);
    needles.MoveRight(kFrequency, 50, kDesign);
  }
  const std::tuple<NeedleLine, int, int> lines[] = {
      {needles.MoveMain(kInput, 60, kDesign), 262 - 100, 262 + 10},
      {needles.MoveLeft(kOutput, 130, kDesign), 103 - 60, 103},
      {needles.MoveRight(kFrequency, 50, kDesign), 417 + 60, 417 + 5}};
  for (const auto& [line, tip, tail] : lines) {
    EXPECT_NEAR(line.tip.x, tip, 0.02);
    EXPECT_NEAR(line.tail.x, tail, 0.02);
  }
  // Up to 20 the needle of the frequency is short.
  const auto tail = [&](float value) {
    const auto line = needles.MoveRight(kFrequency, value, kDesign);
    return std::hypot(line.tail.x - 417, line.tail.y - 260);
  };
  EXPECT_NEAR(tail(20.0F), 35, 1e-9);
  EXPECT_NEAR(tail(20.1F), 5, 1e-9);
}

TEST(Bars, RiseByThreeRowsFromTheirBottomEdge) {
  const std::tuple<PanelScale, platform::Rect, platform::Rect> cases[] = {
      {{&kSizeClasses[1], 1, 1}, {0, 166, 32, 123}, {606, 197, 33, 120}},
      {{&kSizeClasses[0], 1.25F, 1}, {0, 108, 30, 123}, {606, 166, 38.75, 150}},
      {{&kSizeClasses[2], 1, 1.28}, {0, 254, 48, 123}, {775, 293, 49, 120}},
  };
  for (const auto& [scale, from, to] : cases) {
    Needles needles;  // A bar starts at row 120.
    const auto part = needles.MoveBar(kBatteryWithLoad, 100, scale);
    EXPECT_EQ(part.from, from) << scale.sizeClass->suffix;
    EXPECT_EQ(part.to, to) << scale.sizeClass->suffix;
  }
  Needles needles;
  for (int i = 0; i < 40; ++i) needles.MoveBar(kLoad, 50, kDesign);
  // It stops within a step.
  EXPECT_NEAR(needles.MoveBar(kLoad, 50, kDesign).from.height, 289 * 50 / 120.0, 1e-9);
  EXPECT_THROW(ToPixels(605, 60), platform::RuntimeError);
}

}  // namespace
}  // namespace varek
