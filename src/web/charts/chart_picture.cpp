#include "web/charts/chart_picture.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "platform/text/text.h"
#include "texts/language.h"

namespace varek {

namespace {

using platform::Color;
using platform::Surface;

constexpr Color kPaper{255, 255, 255};
constexpr Color kGridColor{30, 30, 80};
constexpr int kPlotLeft = 20;
constexpr int kPlotTop = 5;
constexpr int kScaleSteps = 10;
constexpr int kCurveWidth = 2;
constexpr int kLongestBridge = 10;  ///< seconds

// Three digits must fit into the 20 pixels beside the plot, "23:59" into the 30 below it, and the
// twelve pixels between two values of the small chart must separate them.
constexpr int kLabelSize = 9;
constexpr int kLabelDistance = 30;
constexpr int kLabelShift = 13;

struct Point {
  double x = 0;
  double y = 0;
};

/// What a curve covers of one column of pixels.
struct Extent {
  double top = std::numeric_limits<double>::max();
  double bottom = std::numeric_limits<double>::lowest();
};
using Extents = std::vector<Extent>;

/// Adds the line between two points, `from` left of `to`, to the columns that it crosses.
void CoverLine(const Point& from, const Point& to, Extents& columns) {
  const double slope = (to.y - from.y) / (to.x - from.x);
  const auto first = static_cast<size_t>(from.x), last = static_cast<size_t>(to.x);
  for (size_t column = first; column <= std::min(last, columns.size() - 1); ++column) {
    const auto left = static_cast<double>(column);
    const double entry = from.y + slope * (std::max(left, from.x) - from.x);
    const double exit = from.y + slope * (std::min(left + 1, to.x) - from.x);
    Extent& extent = columns[column];
    extent.top = std::min({extent.top, entry, exit});
    extent.bottom = std::max({extent.bottom, entry, exit});
  }
}

/// Many seconds share a column of pixels, so a curve is gathered by columns, and each is drawn
/// once.
Extents CurveExtents(const ChartSeries& series, const ChartShape& shape, int16_t scale) {
  const double xScale = static_cast<double>(shape.plotWidth) / kLastSecond;
  const double yScale = static_cast<double>(shape.plotHeight) / scale;
  Extents columns(static_cast<size_t>(shape.plotWidth));
  Point previous;
  bool broken = true;
  int gap = 0;
  for (size_t second = 1; second < series.size(); ++second) {
    if (series[second] == kNoSample) {
      broken = broken || ++gap > kLongestBridge;
      continue;
    }
    gap = 0;
    const Point point{static_cast<double>(second) * xScale,
                      shape.plotHeight - series[second] * yScale};
    if (!broken) CoverLine(previous, point, columns);
    previous = point;
    broken = false;
  }
  return columns;
}

/// A pen's width around the curve, to its left and above it first.
void DrawExtents(const Extents& columns, Surface& plot, Color color) {
  for (size_t column = 0; column < columns.size(); ++column) {
    const auto [top, bottom] = columns[column];
    if (top > bottom) continue;
    plot.Fill({static_cast<double>(column) - kCurveWidth / 2.0, top - kCurveWidth / 2.0,
               kCurveWidth, bottom - top + kCurveWidth},
              color);
  }
}

/// The hour is not wrapped: what follows 23:59 is 24:00.
std::string TimeLabel(int hour, int minute) {
  return std::to_string(hour + minute / 60) + ":" + platform::ZeroPadded(minute % 60, 2);
}

}  // namespace

Chart::Chart(const ChartShape& shape, int16_t scale)
    : shape_(shape),
      scale_(scale),
      plot_(shape.plotWidth, shape.plotHeight),
      picture_(shape.width, shape.height) {
  plot_.Clear(kPaper);
  picture_.Clear(kPaper);
  Grid();
}

void Chart::Grid() {
  for (int second = 0; second <= kLastSecond; second += shape_.gridSeconds) {
    const double x = static_cast<double>(second) * shape_.gridWidth / kLastSecond;
    plot_.Line(x, 0, x, shape_.plotHeight, kGridColor);
  }
  for (int value = 0; value <= scale_; value += scale_ / kScaleSteps) {
    const double y = shape_.gridHeight - static_cast<double>(value) * shape_.gridHeight / scale_;
    plot_.Line(0, y, shape_.plotWidth, y, kGridColor);
  }
}

void Chart::Curve(const ChartSeries& series, Color color) {
  platform::Guarded(shape_.curveErrors,
                    [&] { DrawExtents(CurveExtents(series, shape_, scale_), plot_, color); });
}

Surface Chart::Finish(const TimeOfDay& start) {
  picture_.Copy(plot_, kPlotLeft, kPlotTop);
  if (shape_.framed) DrawFrame();
  picture_.SetTextSize(kLabelSize);
  picture_.SetTextColor(Color{});
  ScaleLabels();
  TimeLabels(start);
  return std::move(picture_);
}

void Chart::ScaleLabels() {
  for (int value = 0; value <= scale_; value += scale_ / kScaleSteps) {
    const double y = shape_.plotHeight - static_cast<double>(value) * shape_.plotHeight / scale_;
    picture_.Text(0, y, std::to_string(value));
  }
}

void Chart::TimeLabels(const TimeOfDay& start) {
  for (int x = kPlotLeft; x <= shape_.lastLabel; x += kLabelDistance) {
    const int minute = (x - kPlotLeft) / shape_.pixelsPerMinute + start.minute;
    picture_.Text(x - kLabelShift, shape_.plotHeight + kPlotTop, TimeLabel(start.hour, minute));
  }
}

/// None on the left, and the right side twice. The lines belong to the picture's format: do not
/// change.
void Chart::DrawFrame() {
  picture_.Line(20, 123, 200, 123, kGridColor);
  picture_.Line(198, 5, 198, 125, kGridColor);
  picture_.Line(20, 5, 200, 5, kGridColor);
  picture_.Line(198, 5, 198, 125, kGridColor);
}

Surface NoDataPicture(const ChartShape& shape) {
  Surface picture(shape.width, shape.height);
  picture.Clear(palette::kFace);
  picture.Rectangle({0, 0, shape.width - 1.0, shape.height - 1.0}, palette::kPanelEdge);
  picture.SetTextColor(palette::kText);
  const std::string& text = LangText[texts::kNoDataForDay];
  const int left = (shape.width - picture.TextWidth(text)) / 2;
  const int top = (shape.height - picture.TextHeight()) / 2;
  picture.Text(left, top, text);
  return picture;
}

}  // namespace varek
