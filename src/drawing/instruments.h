// The instruments of the dashboard as plain arithmetic: how large the panel is drawn, how a reading
// becomes an angle, and how needle and bar move towards it. The dial pictures are drawn by the same
// arithmetic, so that scales and needles agree. Angles are degrees on the screen (x to the right,
// y down).
#pragma once

#include <array>
#include <cstdint>

#include "drawing/dashboard_places.h"
#include "platform/picture/surface.h"

namespace varek {

/// By the width of the dashboard's client area in pixels: below 780, up to 1023, above.
const SizeClass& ChooseSizeClass(int clientWidth);

/// How much larger than its design the panel is drawn, by the tighter of both directions. Close to
/// the design size (above 0.95, below 1.09) it is drawn at exactly that.
float FitScale(int width, int height, const SizeClass& sizeClass);

/// How large the panel is drawn.
struct PanelScale {
  const SizeClass* sizeClass = &kSizeClasses[0];
  float fit = 1;      ///< of the pictures of the size class
  double factor = 1;  ///< pixels for a design unit
};

/// For a panel of `width` by `height` in a client area of `clientWidth`, all in pixels.
PanelScale ChooseScale(int clientWidth, int width, int height);

/// The dial of an instrument that has one.
const Dial& DialOf(Instrument index);

/// Design units to pixels: times `factor`, to the nearest whole number, ties to even. Throws
/// RuntimeError 6 beyond 16 bits.
int16_t ToPixels(double units, double factor);

/// The angle of `value`; linear and without clamping, so it may lie past the ends of the scale.
double TargetAngle(const Dial& dial, double value);

/// The rows that a bar's picture of `height` shows for `value`; as linear, and as little clamped.
double TargetRows(const Bar& bar, double value, double height);

struct Point {
  double x = 0;
  double y = 0;
};

/// The dial's centre on the panel, in pixels.
Point DialCentre(const Dial& dial, double factor);

/// The point in the direction of `angle`, `radius` pixels from the dial's centre. The right needle
/// is the mirror image of the others.
Point OnDial(const Dial& dial, double factor, double angle, double radius);

struct NeedleLine {
  Point tail;
  Point tip;
};

/// A bar's picture begins a pixel right of its frame, its filled part three below the row that the
/// level asks for.
constexpr int kBarInset = 1;
constexpr int kBarTopGap = 3;

struct BarPart {
  platform::Rect from;  ///< in the picture
  platform::Rect to;    ///< on the panel
};

/// Where the moving parts stand, and how they move: one call of a member is one frame.
class Needles final {
 public:
  Needles();

  /// A fifth of the way to the present reading. The tail runs 10 pixels behind the centre.
  NeedleLine MoveMain(const Dial& dial, float value, const PanelScale& scale);
  /// A fifth of the way that was left a frame ago, in steps of one size; begins at the centre.
  NeedleLine MoveLeft(const Dial& dial, float value, const PanelScale& scale);
  /// A fifth of the way that was left a frame ago. Begins 5 pixels out, at 20 and below 35.
  NeedleLine MoveRight(const Dial& dial, float value, const PanelScale& scale);
  /// Three rows of the picture towards the reading; the part of the picture that shows then.
  BarPart MoveBar(const Bar& bar, float value, const PanelScale& scale);

 private:
  /// Degrees of a dial, rows of a bar's picture.
  struct Place {
    double position;
    double target;
  };

  std::array<Place, kInstrumentCount> places_;
};

}  // namespace varek
