#include "views/oscilloscope/curve_panel.h"

#include <utility>

#include "platform/errors/guard.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"
#include "views/oscilloscope/curves/scope_colors.h"
#include "views/oscilloscope/scope_tip.h"

namespace varek {

namespace {

constexpr int kColumns = 2;
constexpr int kRows = (kScopeSwitches + kColumns - 1) / kColumns;
constexpr int kLeastRowHeight = 24;
constexpr int kColumnWidth = 164;
constexpr int kMargin = 4;
constexpr QSize kSwatch{16, 12};

/// A plain area of one colour.
QWidget* MakeSwatch(QWidget* parent, platform::Color color) {
  auto* swatch = new QWidget(parent);
  QPalette colors;
  colors.setColor(QPalette::Window, ToQColor(color));
  swatch->setPalette(colors);
  swatch->setAutoFillBackground(true);
  swatch->resize(kSwatch);
  return swatch;
}

platform::Color SwitchColor(int index) {
  return index == kEventSwitch ? EventColor[0] : CurveColor[index];
}

}  // namespace

CurvePanel::CurvePanel(QWidget* parent, StickyPanels& panels, size_t number,
                       const std::function<void()>& clicked)
    : MovablePanel(parent, "form3 Picture7", panels, number),
      rowHeight_(RowHeight(*this, kLeastRowHeight)) {
  for (int i = 0; i < kScopeSwitches; ++i) {
    auto* box = new QCheckBox(this);
    box->setChecked(true);
    connect(box, &QCheckBox::clicked, this,
            [clicked] { platform::Guarded("form3 Check1_Click", clicked); });
    boxes_[static_cast<size_t>(i)] = box;
    swatches_[static_cast<size_t>(i)] = MakeSwatch(this, SwitchColor(i));
  }
  resize(kColumns * kColumnWidth + 2 * kMargin, kTitleHeight + kRows * rowHeight_ + kMargin);
  TellPanels();
  ShowMeasured();
}

void CurvePanel::ApplyLanguage() {
  SetTitle(Shown(texts::kScopeCurves));
  for (int i = 0; i < kCurveCount; ++i) Box(i).setText(Shown(CurveName(i)));
  Box(kEventSwitch).setText(Shown(texts::kScopeEvents));
}

void CurvePanel::ShowMeasured() {
  int place = 0;
  for (int i = 0; i < kScopeSwitches; ++i) {
    Take(i, i == kEventSwitch || IsCurveMeasured(i));
    if (!Box(i).isHidden()) Place(i, place++);
  }
}

void CurvePanel::Take(int index, bool measured) {
  if (measured == !Box(index).isHidden()) return;
  Box(index).setChecked(measured);
  Box(index).setVisible(measured);
  swatches_[static_cast<size_t>(index)]->setVisible(measured);
}

void CurvePanel::Place(int index, int place) {
  const int left = kMargin + place / kRows * kColumnWidth;
  const int top = kTitleHeight + place % kRows * rowHeight_;
  swatches_[static_cast<size_t>(index)]->move(left + kMargin,
                                              top + (rowHeight_ - kSwatch.height()) / 2);
  const int textLeft = 2 * kMargin + kSwatch.width() + kMargin;
  Box(index).setGeometry(left + textLeft, top, kColumnWidth - textLeft, rowHeight_);
}

}  // namespace varek
