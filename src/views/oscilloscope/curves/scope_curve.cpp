#include "views/oscilloscope/curves/scope_curve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace varek {

namespace {

constexpr int kLongestBridge = 10;  ///< seconds
constexpr double kNoPoint = 9999;
/// What is less high needs no line of its own beside those to its neighbours.
constexpr double kLeastExtent = 0.5;

/// Joins samples to lines, one pixel column at a time. Within a column only the values are looked
/// at, as that is where nearly all samples of a whole day end.
class SegmentPen {
 public:
  explicit SegmentPen(const PlotScale& scale) : scale_(scale) {}

  void Add(int32_t second, float value) {
    if (second >= columnEnd_) BeginColumn(second, value);
    min_ = std::min(min_, value);
    max_ = std::max(max_, value);
    last_ = value;
    lastSecond_ = second;
  }

  /// The next sample is not joined to the last one.
  void Break() {
    EndColumn();
    LastY = kNoPoint;
    columnEnd_ = kNoColumn;
  }

  std::vector<platform::Segment> Take() {
    EndColumn();
    return std::move(segments_);
  }

 private:
  static constexpr double kNoColumn = -std::numeric_limits<double>::infinity();

  void BeginColumn(int32_t second, float value) {
    EndColumn();
    firstSecond_ = second;
    column_ = std::floor(scale_.X(second));
    columnEnd_ = scale_.left + (column_ + 1) / scale_.xs;
    first_ = min_ = max_ = value;
  }

  void EndColumn() {
    if (columnEnd_ == kNoColumn) return;
    const bool single = firstSecond_ == lastSecond_;
    const double x = single ? scale_.X(firstSecond_) : column_ + 0.5;
    const bool alone = LastY == kNoPoint;
    if (!alone) segments_.push_back({LastX, LastY, x, scale_.Y(first_)});
    if (!single) AddExtent(x, alone);
    LastX = x;
    LastY = scale_.Y(last_);
  }

  /// The first column shows even when it is flat: nothing may come behind it.
  void AddExtent(double x, bool alone) {
    const double upper = scale_.Y(max_), lower = scale_.Y(min_);
    if (lower - upper > kLeastExtent) {
      segments_.push_back({x, upper, x, lower});
    } else if (alone) {
      segments_.push_back({column_, upper, column_ + 1, upper});
    }
  }

  PlotScale scale_;
  std::vector<platform::Segment> segments_;
  double LastX = 0;
  double LastY = kNoPoint;
  // The column at work.
  double column_ = 0;
  double columnEnd_ = kNoColumn;  ///< the second with which the next one begins
  int32_t firstSecond_ = 0;
  int32_t lastSecond_ = 0;
  float first_ = 0;
  float last_ = 0;
  float min_ = 0;
  float max_ = 0;
};

}  // namespace

std::vector<platform::Segment> CurveSegments(const Curve& curve, int32_t from, int32_t to,
                                             const PlotScale& scale) {
  SegmentPen pen(scale);
  int gap = 0;
  const int32_t end = std::min<int32_t>(to, static_cast<int32_t>(curve.size()) - 1);
  for (int32_t i = std::max(from, 0); i <= end; ++i) {
    const float value = curve[static_cast<size_t>(i)];
    if (value == kNoSample) {
      if (++gap == kLongestBridge + 1) pen.Break();
      continue;
    }
    pen.Add(i, value);
    gap = 0;
  }
  return pen.Take();
}

}  // namespace varek
