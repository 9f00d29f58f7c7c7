#include "views/dashboard/search_box.h"

#include <QImage>
#include <QLabel>
#include <QPainter>

#include "drawing/palette.h"
#include "platform/system/paths.h"
#include "texts/language.h"
#include "views/kit/controls/progress_bar.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"

namespace varek {

namespace {
constexpr int kPlace = 27;  ///< of the bar in the box, both ways
constexpr int kBarWidth = 300;
constexpr int kBarHeight = 18;
constexpr int kLabelWidth = 80;
}  // namespace

SearchBox::SearchBox(QWidget* parent)
    : QFrame(parent),
      caption_(new QLabel(this)),
      label_(new QLabel(this)),
      target_(kBarWidth, kBarHeight),
      source_(platform::ImagePath("progress.jpg")),
      barTop_(RowHeight(*caption_, kPlace)) {
  setFixedSize(kBarWidth + 2 * kPlace, barTop_ + kBarHeight + kPlace);
  setFrameShape(QFrame::Box);
  setAutoFillBackground(true);
  caption_->setGeometry(kPlace, 2, kBarWidth - kLabelWidth, barTop_ - 4);
  label_->setGeometry(kPlace + kBarWidth - kLabelWidth, 2, kLabelWidth, barTop_ - 4);
  label_->setObjectName(QStringLiteral("port"));
  label_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  hide();
}

void SearchBox::Open() {
  SetProgress(0);
  Place();
  show();
  raise();
}

void SearchBox::Place() {
  move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
}

void SearchBox::ApplyLanguage() { caption_->setText(Shown(texts::kSearchingForUps)); }

void SearchBox::SetLabel(const std::string& text) { label_->setText(Shown(text)); }

void SearchBox::SetProgress(double percent) {
  const int pixels = static_cast<int>(kBarWidth * percent / 100);
  if (pixels == shown_ && pixels > 0) return;
  shown_ = pixels;
  target_.Clear(palette::kFace);
  linepsent(0, 0, percent, target_, source_);
  update();
}

void SearchBox::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter(this).drawImage(kPlace, barTop_, target_.Image());
}

}  // namespace varek
