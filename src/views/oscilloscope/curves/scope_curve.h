// From samples to lines: the rule for missing samples, and the thinning that keeps the drawing of a
// whole day cheap.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/picture/surface.h"
#include "views/oscilloscope/curves/scope_data.h"

namespace varek {

/// Where a second and a value stand in a picture.
struct PlotScale {
  double left;    ///< second at the left edge
  double bottom;  ///< value at the lower edge
  double xs;      ///< pixels a second
  double ys;      ///< pixels a unit
  double height;  ///< of the picture

  double X(double second) const { return (second - left) * xs; }
  double Y(double value) const { return height - (value - bottom) * ys; }
};

/// The lines that join the samples of seconds `from` to `to`, as far as the curve has them. Up to
/// 10 missing seconds are bridged, an 11th breaks the curve. Samples that share a pixel column
/// become one line over their extent.
std::vector<platform::Segment> CurveSegments(const Curve& curve, int32_t from, int32_t to,
                                             const PlotScale& scale);

}  // namespace varek
