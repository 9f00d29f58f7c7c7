// The instruments of the dashboard as plain arithmetic: where each dial and bar stands, how a
// reading becomes an angle, and how needle and bar move towards it. The dial pictures are drawn
// from the same tables, so that scales and needles agree. Positions are in design units, the
// pixels of size class 800; angles are degrees on the screen (x to the right, y down).
#pragma once

#include <array>
#include <cstdint>

#include "platform/picture/surface.h"

namespace varek {

/// One of the three sizes in which the dial panel is drawn.
struct SizeClass {
  const char* suffix;  ///< of the picture files
  int designWidth;     ///< pixels of the panel's picture
  int designHeight;
  float sizeFactor;  ///< pixels for a design unit
  int barIndex;      ///< which bar pictures
  int lineWidth;     ///< with which a frame begins
};

extern const std::array<SizeClass, 3> kSizeClasses;  ///< 640, 800, 1024

/// By the width of the dashboard's client area in pixels: below 780, up to 1023, above.
const SizeClass& ChooseSizeClass(int clientWidth);

/// How much larger than its design the panel is drawn, by the tighter of both directions. Close to
/// the design size (above 0.95, below 1.09) it is drawn at exactly that.
float FitScale(int clientWidth, int clientHeight, const SizeClass& sizeClass);

/// Sizes in pixels of the filled bar pictures, by SizeClass::barIndex.
struct BarSize {
  int width;
  int height;
};
constexpr std::array<BarSize, 3> kBarSizes{{{33, 289}, {31, 231}, {49, 377}}};

/// Added to every dial centre, in design units.
constexpr int kOffsetX = 2;
constexpr int kOffsetY = 5;

/// Indexes into the needle positions; fixed, and used by nothing else.
enum Instrument : int {
  kInputDial,
  kOutputDial,
  kLoadBar,
  kFrequencyDial,
  kBatteryBar,
  kTemperatureDial,
  kInstrumentCount
};

/// Which needle a dial has: they differ in damping and tail.
enum class Needle { Main, Left, Right };

struct Dial {
  Instrument index;
  Needle needle;
  float fullScale;
  float startAngle;
  float endAngle;
  int centreX;  ///< without the offset
  int centreY;
  int length;
};

extern const std::array<Dial, 4> kDials;  ///< input, output, frequency, temperature
/// The dial of an instrument that has one.
const Dial& DialOf(Instrument index);

struct Bar {
  Instrument index;
  float fullScale;
  int x;  ///< left of the bar's frame
  int y;
};

/// A bar's picture begins a pixel right of its frame, its filled part three below the row that the
/// level asks for.
constexpr int kBarInset = 1;
constexpr int kBarTopGap = 3;

extern const Bar kBatteryWithLoad;
extern const Bar kLoad;
extern const Bar kBatteryAlone;  ///< stands further left, on panels without a load

/// Design units to pixels: times `factor`, to the nearest whole number, ties to even. Throws
/// RuntimeError 6 beyond 16 bits.
int16_t ToPixels(double units, double factor);

/// The angle of `value`; linear and without clamping, so it may lie past the ends of the scale.
double TargetAngle(double value, double fullScale, double startAngle, double endAngle);

struct Point {
  double x = 0;
  double y = 0;
};

/// The point of a dial's needle direction at `radius` from its centre, in the same unit as both.
/// The right needle is the mirror image of the others.
Point OnDial(Needle needle, Point centre, double angle, double radius);

struct NeedleLine {
  Point tail;
  Point tip;
};

/// Where the moving parts stand, and how they move: one call of a member is one frame.
class Needles final {
 public:
  Needles();

  /// A fifth of the way to the present reading. The tail runs 10 pixels behind the centre.
  NeedleLine MoveMain(float value, int index, float fullScale, float startAngle, float endAngle,
                      Point centre, double length);
  /// A fifth of the way that was left a frame ago, in steps of one size; begins at the centre.
  NeedleLine MoveLeft(float value, int index, float fullScale, float startAngle, float endAngle,
                      Point centre, double length);
  /// A fifth of the way that was left a frame ago. Begins 5 pixels out, at 20 and below 35.
  NeedleLine MoveRight(float value, int index, float fullScale, float startAngle, float endAngle,
                       Point centre, double length);

  struct BarPart {
    platform::Rect from;  ///< in the picture
    platform::Rect to;    ///< on the panel
  };
  /// Three rows of the picture towards the reading; the part of the picture that shows then.
  BarPart MoveBar(float value, int index, float fullScale, double bottom, double top, int x, int y,
                  double scale, const BarSize& picture);

  /// Degrees of a dial, rows of a bar's picture.
  double Position(int index) const { return NeedlePosition.at(static_cast<size_t>(index)); }

 private:
  std::array<double, kInstrumentCount> NeedlePosition;  ///< degrees, or rows of a bar picture
  std::array<double, kInstrumentCount> NeedleTarget;
  double NeedleStep = 0;
};

}  // namespace varek
