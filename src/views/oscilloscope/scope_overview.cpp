#include "views/oscilloscope/scope_overview.h"

#include "views/oscilloscope/curves/scope_colors.h"
#include "views/oscilloscope/curves/scope_curve.h"

namespace varek {

namespace {

constexpr platform::Rect kWhole{0, 0, kOverviewWidth, kOverviewHeight};
constexpr double kPixelsOfUnit = double(kOverviewHeight) / kTopOfPlane;

}  // namespace

ScopeOverview::ScopeOverview(const ScopeData& data, const ScopeView& view)
    : data_(data), view_(view) {}

void ScopeOverview::DrawOverview() {
  dataAlone_.Clear(kScopeBack);
  for (int i = 0; i < kCurveCount; ++i) {
    if (IsCurveMeasured(i)) DrawOverviewCurve(data_.Samples(i), CurveColor[i]);
  }
}

void ScopeOverview::DrawOverviewCurve(const Curve& curve, platform::Color color) {
  const int32_t total = data_.TotalSeconds();
  if (total == 0) return;
  const PlotScale scale{0, 0, double(kOverviewWidth) / total, kPixelsOfUnit, kOverviewHeight};
  dataAlone_.Segments(CurveSegments(curve, 0, total, scale), color);
}

void ScopeOverview::DrawOverviewBox() {
  shown_.Stretch(kWhole, dataAlone_, kWhole);
  const int32_t total = data_.TotalSeconds();
  if (total == 0) return;
  const double xs = double(kOverviewWidth) / total;
  shown_.Rectangle(
      {view_.Left() * xs, kOverviewHeight - view_.Top() * kPixelsOfUnit,
       (view_.Right() - view_.Left()) * xs, (view_.Top() - view_.Bottom()) * kPixelsOfUnit},
      kBoxColor);
}

}  // namespace varek
