// Needles and bars frame by frame, against values worked out by hand.
#include "drawing/instruments.h"

#include <gtest/gtest.h>

#include <cmath>

#include "platform/errors/runtime_error.h"

namespace varek {
namespace {

constexpr Point kCentre{100, 100};

TEST(SizeClasses, FitWithoutScalingNearTheirDesign) {
  const SizeClass design{"", 1000, 1000, 1, 0, 1};
  const std::pair<int, float> fits[] = {{940, 0.94F}, {950, 0.95F},  {951, 1.0F}, {1050, 1.0F},
                                        {1089, 1.0F}, {1090, 1.09F}, {2000, 2.0F}};
  for (const auto& [size, fit] : fits) {
    EXPECT_EQ(FitScale(size, 2000, design), fit) << size;
    EXPECT_EQ(FitScale(2000, size, design), fit) << size;
  }
}

TEST(Needles, MoveByTheirThreeRules) {
  struct Frame {
    float value;
    double position;
  };
  Needles needles;
  // Input: 150 V asks for 270 degrees, 320 V for 440, past the end of the scale.
  const Frame main[] = {{150, 150}, {150, 174}, {150, 193.2}, {320, 242.56}};
  for (const Frame& frame : main) {
    needles.MoveMain(frame.value, kInputDial, 300, 120, 420, kCentre, 100);
    EXPECT_NEAR(needles.Position(kInputDial), frame.position, 1e-9);
  }
  for (int i = 0; i < 200; ++i) needles.MoveMain(320, kInputDial, 300, 120, 420, kCentre, 100);
  EXPECT_NEAR(needles.Position(kInputDial), 440, 1e-9);

  // Output: the first step is a fifth of the way to its starting target of 90; 130 V asks for 180.
  // The last frame's reading asks for 150, nearer than a step, and is reached at once.
  const Frame left[] = {{130, 126}, {130, 136.8}, {130, 145.44}, {260.0F / 3, 150}};
  for (const Frame& frame : left) {
    needles.MoveLeft(frame.value, kOutputDial, 260, 90, 270, kCentre, 60);
    EXPECT_NEAR(needles.Position(kOutputDial), frame.position, 1e-5);
  }

  // Frequency: the first step goes towards its starting target of 0; 50 Hz asks for 180.
  const Frame right[] = {{50, 96}, {50, 112.8}, {50, 126.24}, {0, 136.992}, {0, 127.5936}};
  for (const Frame& frame : right) {
    needles.MoveRight(frame.value, kFrequencyDial, 100, 90, 270, kCentre, 60);
    EXPECT_NEAR(needles.Position(kFrequencyDial), frame.position, 1e-9);
  }
}

TEST(Needles, TheFrequencyNeedleIsShortUpTo20) {
  Needles needles;
  const auto tail = [&](float value) {
    const auto line = needles.MoveRight(value, kFrequencyDial, 100, 90, 270, kCentre, 60);
    return std::hypot(line.tail.x - kCentre.x, line.tail.y - kCentre.y);
  };
  EXPECT_NEAR(tail(20.0F), 35, 1e-9);
  EXPECT_NEAR(tail(20.1F), 5, 1e-9);
}

TEST(Bars, RiseByThreeRowsFromTheirBottomEdge) {
  struct Case {
    BarSize size;
    double scale;
    int y;
    platform::Rect from;
    platform::Rect to;
  };
  const Case cases[] = {
      {{33, 289}, 1.0, 28, {0, 166, 32, 123}, {606, 197, 33, 120}},
      {{31, 231}, 1.25, 28, {0, 108, 30, 123}, {606, 166, 38.75, 150}},
      {{49, 377}, 1.0, 36, {0, 254, 48, 123}, {606, 293, 49, 120}},
  };
  for (const Case& c : cases) {
    Needles needles;  // A bar starts at row 120.
    const auto part =
        needles.MoveBar(100, kBatteryBar, 100, 0, c.size.height, 605, c.y, c.scale, c.size);
    EXPECT_EQ(part.from, c.from) << c.size.height;
    EXPECT_EQ(part.to, c.to) << c.size.height;
  }
  Needles needles;
  for (int i = 0; i < 40; ++i) needles.MoveBar(50, kLoadBar, 120, 0, 289, 0, 0, 1, {33, 289});
  EXPECT_NEAR(needles.Position(kLoadBar), 289 * 50 / 120.0, 1e-9);  // It stops within a step.
}

TEST(Instruments, ReportAPositionBeyondSixteenBits) {
  EXPECT_THROW(ToPixels(605, 60), platform::RuntimeError);
}

}  // namespace
}  // namespace varek
