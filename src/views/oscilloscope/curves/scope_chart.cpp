#include "views/oscilloscope/curves/scope_chart.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>

#include "platform/errors/guard.h"
#include "platform/text/text.h"
#include "views/oscilloscope/curves/scope_colors.h"

namespace varek {

namespace {

constexpr int kCurveWidth = 3;
constexpr int kEventWidth = 2;
constexpr int kLabelSize = 10;
constexpr int kLabelGap = 2;
/// Right of it stand the values; times that would reach into it are left out.
constexpr int kValueRoom = 24;

/// The rules of both grids, by the span that they serve at most.
struct TimeGrid {
  int32_t span;
  int step;  ///< seconds; 0 without a grid
  TimeStyle style;
};
constexpr TimeGrid kTimeGrids[] = {
    {10, 0, TimeStyle::HourMinute},         {120, 5, TimeStyle::HourMinuteSecond},
    {600, 60, TimeStyle::HourMinuteSecond}, {1800, 300, TimeStyle::HourMinute},
    {3600, 600, TimeStyle::HourMinute},     {INT32_MAX, 1800, TimeStyle::HourMinute}};

struct ValueGrid {
  int16_t span;
  double step;  ///< 0 without a grid
};
constexpr ValueGrid kValueGrids[] = {{1, 0},   {2, 0.1},  {20, 1},
                                     {100, 5}, {150, 25}, {INT16_MAX, 50}};

template <typename Grid, size_t size, typename Span>
const Grid& GridFor(const Grid (&grids)[size], Span span) {
  size_t i = 0;
  while (span > grids[i].span) ++i;
  return grids[i];
}

/// Tenths have the form "00.0", whole steps are plain.
std::string ValueLabel(double value, double step) {
  if (step >= 1) return platform::SingleText(static_cast<float>(value));
  char text[32];
  std::snprintf(text, sizeof text, "%04.1f", value);
  return text;
}

}  // namespace

ScopeChart::ScopeChart(const ScopeData& data, const ScopeView& view) : data_(data), view_(view) {
  curveOn_.fill(kSet);
  hidden_.SetTextSize(kLabelSize);
  hidden_.SetTextColor(kGridTextColor);
}

void ScopeChart::Resize(int width, int height) {
  shown_.Resize(width, height);
  hidden_.Resize(width, height);
}

bool ScopeChart::HasArea() const {
  return view_.Right() > view_.Left() && view_.Top() > view_.Bottom();
}

PlotScale ScopeChart::Scale() const {
  return {view_.Left(), view_.Bottom(), shown_.Width() / (view_.Right() - view_.Left()),
          shown_.Height() / (view_.Top() - view_.Bottom()), double(shown_.Height())};
}

void ScopeChart::DrawChart() {
  hidden_.Clear(kScopeBack);
  if (HasArea()) {
    DrawTimeGrid();
    DrawValueGrid();
    for (int i = 0; i < kCurveCount; ++i) {
      if (!curveOn_[static_cast<size_t>(i)]) continue;
      platform::IgnoreErrors([&] { DrawCurve(data_.Samples(i), CurveColor[i]); });
    }
    if (curveOn_[kEventSwitch]) DrawEvents();
  }
  shown_.Copy(hidden_);
}

/// The first line stands where the view begins, not on a round time.
void ScopeChart::DrawTimeGrid() {
  const TimeGrid& grid = GridFor(kTimeGrids, view_.SpanX());
  if (grid.step == 0) return;
  const PlotScale scale = Scale();
  double freeFrom = 0;
  for (auto i = static_cast<int32_t>(view_.Left()); i <= view_.Right(); i += grid.step) {
    const double x = scale.X(i);
    hidden_.Line(x, 0, x, scale.height, kGridColor);
    DrawTimeLabel(x + kLabelGap, data_.TimeText(i, grid.style), freeFrom);
  }
}

/// A label that would run into the one before it, or into the values, is left out.
void ScopeChart::DrawTimeLabel(double x, const std::string& text, double& freeFrom) {
  const double end = x + hidden_.TextWidth(text);
  if (x < freeFrom || end > hidden_.Width() - kValueRoom) return;
  hidden_.Text(x, hidden_.Height() - hidden_.TextHeight(), text);
  freeFrom = end + 2 * kLabelGap;
}

void ScopeChart::DrawValueGrid() {
  const double step = GridFor(kValueGrids, view_.SpanY()).step;
  if (step == 0) return;
  const PlotScale scale = Scale();
  // Counted in steps: a sum of tenths would drift.
  for (double i = std::ceil(view_.Bottom() / step); i * step <= view_.Top(); ++i) {
    const double y = scale.Y(i * step);
    hidden_.Line(0, y, hidden_.Width(), y, kGridColor);
    DrawValueLabel(y, ValueLabel(i * step, step));
  }
}

/// Above its line at the right edge, moved in at the top.
void ScopeChart::DrawValueLabel(double y, const std::string& text) {
  const double width = hidden_.TextWidth(text) + kLabelGap;
  const double top = std::max(y - hidden_.TextHeight(), 0.0);
  hidden_.Text(hidden_.Width() - width, top, text);
}

void ScopeChart::DrawCurve(const Curve& curve, platform::Color color) {
  hidden_.SetLineWidth(kCurveWidth);
  hidden_.Segments(CurveSegments(curve, static_cast<int32_t>(view_.Left() + 1),
                                 static_cast<int32_t>(view_.Right()), Scale()),
                   color);
  hidden_.SetLineWidth(1);
}

/// Of several events in one pixel column only the last would show, so only that one is drawn.
void ScopeChart::DrawEvents() {
  const PlotScale scale = Scale();
  std::map<int, const ScopeEvent*> columns;
  for (const ScopeEvent& event : data_.EventList()) {
    if (event.time < view_.Left() || event.time > view_.Right()) continue;
    columns[static_cast<int>(scale.X(event.time))] = &event;
  }
  hidden_.SetLineStyle(platform::LineStyle::Dotted);
  hidden_.SetLineWidth(kEventWidth);
  for (const auto& [column, event] : columns) {
    const double x = scale.X(event->time);
    hidden_.Line(x, 0, x, scale.height, EventColor[event->type - 1]);
  }
  hidden_.SetLineStyle(platform::LineStyle::Solid);
  hidden_.SetLineWidth(1);
}

void ScopeChart::DrawBand(ScopePoint corner, ScopePoint opposite) {
  shown_.Copy(hidden_);
  shown_.Rectangle({std::min(corner.x, opposite.x), std::min(corner.y, opposite.y),
                    std::abs(corner.x - opposite.x), std::abs(corner.y - opposite.y)},
                   kGridTextColor);
}

}  // namespace varek
