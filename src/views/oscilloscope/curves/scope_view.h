// The part of the plane that the oscilloscope shows, in seconds from the first hour and in units of
// value, and how zooming, panning and jumping move it. It stays between second 0 and the last one,
// and between the values 0 and 500. Plain arithmetic; positions are pixels of the picture.
#pragma once

#include <cstdint>

namespace varek {

constexpr int kTopOfPlane = 500;

/// The miniature of the plane has always the same size.
constexpr int kOverviewWidth = 320;
constexpr int kOverviewHeight = 100;

struct ScopePoint {
  double x = 0;
  double y = 0;
};

class ScopeView final {
 public:
  ScopeView() { ResetView(); }

  /// The starting view.
  void ResetView();
  /// Another choice of hours: their middle quarter of an hour.
  void Recentre(int32_t totalSeconds);
  /// The whole plane.
  void ShowAll();
  /// To half of the span in each direction; time stops at 60 seconds, values at 2.
  void ZoomIn();
  /// To twice the span, as far as the plane goes.
  void ZoomOut();

  /// Takes hold of the plane at `at` of a picture of `width` by `height`.
  void Grab(ScopePoint at);
  /// Pans by what the pointer has travelled since Grab.
  void DragTo(ScopePoint at, int width, int height);
  /// Shows what lies between two corners in any order. A very small selection is widened to 60
  /// seconds or to 2 units.
  void SelectBand(ScopePoint corner, ScopePoint opposite, int width, int height);
  /// Puts the middle where the miniature is clicked.
  void CentreOn(ScopePoint miniature);

  double Left() const { return left_; }
  double Right() const { return right_; }
  double Bottom() const { return bottom_; }
  double Top() const { return top_; }
  int32_t SpanX() const { return spanX_; }
  int16_t SpanY() const { return spanY_; }

 private:
  void SetX(double left, double right);
  void SetY(double bottom, double top);

  int32_t totalSeconds_ = 0;
  double left_ = 0;
  double right_ = 0;
  double bottom_ = 0;
  double top_ = 0;
  int32_t spanX_ = 0;
  int16_t spanY_ = 0;
  ScopePoint grabbedAt_;
  double grabbedLeft_ = 0;
  double grabbedBottom_ = 0;
};

}  // namespace varek
