#include "views/history/export_panel.h"

#include <QLabel>
#include <QPainter>

#include "drawing/palette.h"
#include "platform/system/paths.h"
#include "views/kit/controls/progress_bar.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"

namespace varek {

namespace {
constexpr int kPlace = 28;  ///< of the bar in the panel, both ways
constexpr int kBarWidth = 300;
constexpr int kBarHeight = 18;
constexpr int kPercentWidth = 110;
}  // namespace

ExportPanel::ExportPanel(QWidget* parent)
    : QWidget(parent),
      caption_(new QLabel(this)),
      percentText_(new QLabel(this)),
      target_(kBarWidth, kBarHeight),
      source_(platform::ProgramPath("\\image\\progress.jpg")) {
  setFixedSize(kBarWidth + 2 * kPlace, kBarHeight + 2 * kPlace);
  setAttribute(Qt::WA_OpaquePaintEvent);  // Or the grid below would be painted at every step.
  caption_->setGeometry(kPlace, 2, kBarWidth - kPercentWidth, kPlace - 4);
  percentText_->setGeometry(kPlace + kBarWidth - kPercentWidth, 2, kPercentWidth, kPlace - 4);
  percentText_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  hide();
}

void ExportPanel::Open() {
  shownPixels_ = 0;
  target_.Clear(palette::kFace);
  SetPercentText(0);
  move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
  show();
  raise();
}

void ExportPanel::SetProgress(double percent) {
  if (const int whole = static_cast<int>(percent); whole != shownPercent_) SetPercentText(whole);
  const int pixels = static_cast<int>(kBarWidth * percent / 100);
  if (pixels == shownPixels_) return;
  shownPixels_ = pixels;
  linepsent(0, 0, percent, target_, source_);
  update();
}

void ExportPanel::SetPercentText(int percent) {
  shownPercent_ = percent;
  percentText_->setText(QStringLiteral("WRITE %1%").arg(percent));
}

void ExportPanel::ApplyLanguage() { caption_->setText(Shown(texts::kHistoryExporting)); }

void ExportPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(palette::kPanel));
  painter.setPen(ToQColor(palette::kPanelEdge));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.drawImage(kPlace, kPlace, target_.Image());
}

}  // namespace varek
