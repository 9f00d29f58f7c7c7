// The main plot of the oscilloscope: grid, curves and event markers of the part of the plane on
// screen. It is drawn on a hidden picture and copied to the shown one in one go.
#pragma once

#include <array>
#include <string>

#include "core/data_center.h"
#include "platform/picture/surface.h"
#include "views/oscilloscope/curves/scope_curve.h"
#include "views/oscilloscope/curves/scope_data.h"
#include "views/oscilloscope/curves/scope_view.h"

namespace varek {

/// Curves 0 to 5, then the events.
constexpr int kScopeSwitches = kCurveCount + 1;
constexpr int kEventSwitch = kCurveCount;

class ScopeChart final {
 public:
  /// Both must live as long as the chart.
  ScopeChart(const ScopeData& data, const ScopeView& view);

  /// Becomes `width` by `height` pixels; shows nothing until it is drawn.
  void Resize(int width, int height);
  void Switch(int index, bool on) { curveOn_.at(static_cast<size_t>(index)) = ToFlag(on); }

  /// Draws the view anew.
  void DrawChart();
  /// Shows the rubber band between two corners over the plot last drawn.
  void DrawBand(ScopePoint corner, ScopePoint opposite);

  /// What is shown, for the window and for reading colours back.
  const platform::Surface& Picture() const { return shown_; }

 private:
  bool HasArea() const;
  PlotScale Scale() const;
  void DrawTimeGrid();
  void DrawValueGrid();
  void DrawTimeLabel(double x, const std::string& text, double& freeFrom);
  void DrawValueLabel(double y, const std::string& text);
  void DrawCurve(const Curve& curve, platform::Color color);
  void DrawEvents();

  const ScopeData& data_;
  const ScopeView& view_;
  std::array<Flag, kScopeSwitches> curveOn_;
  platform::Surface shown_;
  platform::Surface hidden_;  ///< on which the plot is drawn
};

}  // namespace varek
