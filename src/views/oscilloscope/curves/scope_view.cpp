#include "views/oscilloscope/curves/scope_view.h"

#include <algorithm>

#include "platform/text/text.h"

namespace varek {

namespace {

constexpr int kStartWidth = 900;  ///< seconds, after a choice of hours
constexpr int kLeastZoomX = 60;
constexpr int kLeastZoomY = 2;
constexpr double kLeastBand = 2;
constexpr double kWidenX = 30;
constexpr double kWidenY = 1;

struct Range {
  double low;
  double high;
};

/// Moves a range into 0 to `limit`, at its width.
Range HeldInside(Range range, double limit) {
  const double width = range.high - range.low;
  if (range.low < 0) range = {0, width};
  if (range.high > limit) range = {limit - width, limit};
  return range;
}

Range AroundCentre(double centre, double width) { return {centre - width / 2, centre + width / 2}; }

Range Widened(Range range, double reach) {
  if (range.high - range.low >= kLeastBand) return range;
  const double centre = (range.low + range.high) / 2;
  return {centre - reach, centre + reach};
}

}  // namespace

void ScopeView::SetX(double left, double right) {
  left_ = left;
  right_ = right;
  spanX_ = static_cast<int32_t>(platform::RoundHalfEven(right - left));
}

void ScopeView::SetY(double bottom, double top) {
  bottom_ = bottom;
  top_ = top;
  spanY_ = static_cast<int16_t>(platform::RoundHalfEven(top - bottom));
}

void ScopeView::ResetView() {
  SetX(2000, 3000);
  SetY(0, 200);
}

void ScopeView::Recentre(int32_t totalSeconds) {
  totalSeconds_ = totalSeconds;
  const double centre = totalSeconds / 2.0;
  SetX(centre - kStartWidth / 2.0, centre + kStartWidth / 2.0);
}

void ScopeView::ShowAll() {
  SetX(0, totalSeconds_);
  SetY(0, kTopOfPlane);
}

void ScopeView::ZoomIn() {
  const double cx = (left_ + right_) / 2;
  const double cy = platform::RoundHalfEven((bottom_ + top_) / 2);
  if (spanX_ > kLeastZoomX) SetX(cx - spanX_ / 4.0, cx - spanX_ / 4.0 + spanX_ / 2.0);
  if (spanY_ > kLeastZoomY) SetY(cy - spanY_ / 4.0, cy - spanY_ / 4.0 + spanY_ / 2.0);
}

void ScopeView::ZoomOut() {
  const double cx = (left_ + right_) / 2;
  const double cy = platform::RoundHalfEven((bottom_ + top_) / 2);
  SetX(std::max(cx - spanX_, 0.0), std::min<double>(cx + spanX_, totalSeconds_));
  SetY(std::max(cy - spanY_, 0.0), std::min<double>(cy + spanY_, kTopOfPlane));
}

void ScopeView::Grab(ScopePoint at) {
  grabbedAt_ = at;
  grabbedLeft_ = left_;
  grabbedBottom_ = bottom_;
}

void ScopeView::DragTo(ScopePoint at, int width, int height) {
  const double left = grabbedLeft_ - (at.x - grabbedAt_.x) / width * spanX_;
  const double bottom = grabbedBottom_ + (at.y - grabbedAt_.y) / height * spanY_;
  const Range x = HeldInside({left, left + spanX_}, totalSeconds_);
  const Range y = HeldInside({bottom, bottom + spanY_}, kTopOfPlane);
  SetX(x.low, x.high);
  SetY(y.low, y.high);
}

void ScopeView::SelectBand(ScopePoint corner, ScopePoint opposite, int width, int height) {
  const auto [left, right] = std::minmax(
      {std::clamp<double>(corner.x, 0, width), std::clamp<double>(opposite.x, 0, width)});
  const auto [upper, lower] = std::minmax(
      {std::clamp<double>(corner.y, 0, height), std::clamp<double>(opposite.y, 0, height)});
  const auto second = [&](double x) { return x / width * spanX_ + left_; };
  const auto value = [&](double y) { return (height - y) / height * spanY_ + bottom_; };
  // What is widened at the picture's edge must not lead out of the plane.
  const Range x = HeldInside(Widened({second(left), second(right)}, kWidenX), totalSeconds_);
  const Range y = HeldInside(Widened({value(lower), value(upper)}, kWidenY), kTopOfPlane);
  SetX(x.low, x.high);
  SetY(y.low, y.high);
}

void ScopeView::CentreOn(ScopePoint miniature) {
  const double second = miniature.x * totalSeconds_ / kOverviewWidth;
  const double value = (kOverviewHeight - miniature.y) * kTopOfPlane / kOverviewHeight;
  const Range x = HeldInside(AroundCentre(second, spanX_), totalSeconds_);
  const Range y = HeldInside(AroundCentre(value, spanY_), kTopOfPlane);
  SetX(x.low, x.high);
  SetY(y.low, y.high);
}

}  // namespace varek
