// The miniature of all loaded data, with a box around the part on screen.
#pragma once

#include "platform/picture/surface.h"
#include "views/oscilloscope/curves/scope_data.h"
#include "views/oscilloscope/curves/scope_view.h"

namespace varek {

class ScopeOverview final {
 public:
  /// Both must live as long as the miniature.
  ScopeOverview(const ScopeData& data, const ScopeView& view);

  /// Draws the data anew; the load and the temperature only when the unit measures them. Shows
  /// with the next box.
  void DrawOverview();
  /// Shows the data with the box of the present view.
  void DrawOverviewBox();

  /// What is shown.
  const platform::Surface& Picture() const { return shown_; }

 private:
  void DrawOverviewCurve(const Curve& curve, platform::Color color);

  const ScopeData& data_;
  const ScopeView& view_;
  platform::Surface shown_{kOverviewWidth, kOverviewHeight};
  platform::Surface dataAlone_{kOverviewWidth, kOverviewHeight};  ///< without the box
};

}  // namespace varek
