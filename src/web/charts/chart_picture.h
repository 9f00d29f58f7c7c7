// A chart as a picture: a grid, curves over one hour, and labels on two sides. The small chart and
// the large one differ in their measures only.
#pragma once

#include <cstdint>
#include <string>

#include "core/journal.h"
#include "platform/picture/surface.h"
#include "web/charts/chart_samples.h"

namespace varek {

/// Measures in pixels, but where a unit is named.
struct ChartShape {
  int width, height;          ///< of the whole picture
  int plotWidth, plotHeight;  ///< of the plot area
  int gridWidth, gridHeight;  ///< what an hour and the whole scale span in the grid
  int gridSeconds;            ///< between two vertical lines
  int lastLabel;              ///< where the last label of the time may stand
  int pixelsPerMinute;
  bool framed;              ///< has lines around its plot
  const char* curveErrors;  ///< what stands in the error list for a curve that can't be drawn
};

inline constexpr ChartShape kSmallChart{.width = 220,
                                        .height = 145,
                                        .plotWidth = 180,
                                        .plotHeight = 120,
                                        .gridWidth = 180,
                                        .gridHeight = 120,
                                        .gridSeconds = 600,
                                        .lastLabel = 200,
                                        .pixelsPerMinute = 3,
                                        .framed = true,
                                        .curveErrors = places::kCurve};
inline constexpr ChartShape kLargeChart{.width = 385,
                                        .height = 270,
                                        .plotWidth = 360,
                                        .plotHeight = 250,
                                        .gridWidth = 359,
                                        .gridHeight = 249,
                                        .gridSeconds = 300,
                                        .lastLabel = 350,
                                        .pixelsPerMinute = 6,
                                        .framed = false,
                                        .curveErrors = places::kLargeCurve};

class Chart final {
 public:
  /// An empty grid whose scale goes from 0 to `scale`, at least 10.
  Chart(const ChartShape& shape, int16_t scale);

  /// Draws a measure. Up to ten missing seconds are bridged, eleven break the curve. An error is
  /// added to the error list and ends the curve where it is.
  void Curve(const ChartSeries& series, platform::Color color);

  /// Puts plot, frame and labels together and gives the picture away; the hour shown begins at
  /// `start`.
  platform::Surface Finish(const TimeOfDay& start);

 private:
  void Grid();
  void DrawFrame();
  void ScaleLabels();
  void TimeLabels(const TimeOfDay& start);

  const ChartShape& shape_;
  const int16_t scale_;
  platform::Surface plot_;
  platform::Surface picture_;
};

/// What stands in a chart's place when there is nothing to draw.
platform::Surface NoDataPicture(const ChartShape& shape);

}  // namespace varek
