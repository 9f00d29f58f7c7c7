#include "views/oscilloscope/scope_widgets.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "platform/system/paths.h"
#include "views/kit/controls/progress_bar.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"

namespace varek {

namespace {

constexpr int kTipMargin = 4;
constexpr int kBarPlace = 27;  ///< in its box, both ways
constexpr int kBarWidth = 240;
constexpr int kBarHeight = 18;

}  // namespace

SurfaceView::SurfaceView(QWidget* parent, std::string name, const platform::Surface& surface,
                         Mouse mouse)
    : QWidget(parent), name_(std::move(name)), surface_(surface), mouse_(std::move(mouse)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
}

void SurfaceView::paintEvent(QPaintEvent*) { QPainter(this).drawImage(0, 0, surface_.Image()); }

void SurfaceView::Tell(const char* what, const MouseHandler& handler, QMouseEvent* event) const {
  event->accept();
  if (handler) platform::Guarded(name_ + what, [&] { handler(*event); });
}

void SurfaceView::mousePressEvent(QMouseEvent* event) { Tell("_MouseDown", mouse_.down, event); }
void SurfaceView::mouseMoveEvent(QMouseEvent* event) { Tell("_MouseMove", mouse_.move, event); }
void SurfaceView::mouseReleaseEvent(QMouseEvent* event) { Tell("_MouseUp", mouse_.up, event); }

void SurfaceView::leaveEvent(QEvent*) {
  if (mouse_.left) platform::Guarded(name_ + "_MouseMove", mouse_.left);
}

TipPlate::TipPlate(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void TipPlate::ShowText(const std::string& text, platform::Color back, QPoint pointer) {
  text_ = Shown(text);
  back_ = back;
  const QRect needed = fontMetrics().boundingRect(QRect(), Qt::AlignLeft, text_);
  resize(needed.size() + 2 * QSize(kTipMargin, kTipMargin));
  move(TipPlace(pointer.x(), width(), parentWidget()->width()),
       TipPlace(pointer.y(), height(), parentWidget()->height()));
  show();
  update();
}

void TipPlate::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(back_));
  painter.setPen(ToQColor(TipTextColor(back_)));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.drawText(rect().adjusted(kTipMargin, kTipMargin, 0, 0), Qt::AlignLeft, text_);
}

BusyBar::BusyBar(QWidget* parent)
    : QFrame(parent),
      caption_(new QLabel(this)),
      target_(kBarWidth, kBarHeight),
      source_(platform::ImagePath("progress.jpg")) {
  setFixedSize(kBarWidth + 2 * kBarPlace, kBarHeight + 2 * kBarPlace);
  setObjectName(QStringLiteral("panel"));
  caption_->setGeometry(kBarPlace, 2, kBarWidth, kBarPlace - 4);
  hide();
}

void BusyBar::ApplyLanguage() { caption_->setText(Shown(texts::kScopeLoading)); }

void BusyBar::Open() {
  move((parentWidget()->width() - width()) / 2, (parentWidget()->height() - height()) / 2);
  show();
  raise();
  SetProgress(0);
}

void BusyBar::SetProgress(int percent) {
  target_.Clear(palette::kFace);
  linepsent(0, 0, percent, target_, source_);
  repaint();
}

void BusyBar::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter(this).drawImage(kBarPlace, kBarPlace, target_.Image());
}

}  // namespace varek
