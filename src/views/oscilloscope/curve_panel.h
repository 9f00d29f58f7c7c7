// The panel of check boxes with which curves and events are shown and hidden, each beside a swatch
// of its colour.
#pragma once

#include <QCheckBox>
#include <array>
#include <functional>

#include "views/kit/windows/movable_panel.h"
#include "views/oscilloscope/curves/scope_chart.h"

namespace varek {

class CurvePanel final : public MovablePanel {
 public:
  /// Panel `number` of `panels`. `clicked` runs guarded after a click on any box.
  CurvePanel(QWidget* parent, StickyPanels& panels, size_t number,
             const std::function<void()>& clicked);

  void ApplyLanguage();
  /// Takes out the curves that the unit does not measure; those behind move up into their places.
  /// A curve that is measured only now is shown.
  void ShowMeasured();

  bool IsOn(int index) const { return Box(index).isChecked(); }
  QCheckBox& Box(int index) const { return *boxes_.at(static_cast<size_t>(index)); }

 private:
  void Take(int index, bool measured);
  void Place(int index, int place);

  int rowHeight_;
  std::array<QCheckBox*, kScopeSwitches> boxes_{};
  std::array<QWidget*, kScopeSwitches> swatches_{};
};

}  // namespace varek
