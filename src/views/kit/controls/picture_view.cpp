#include "views/kit/controls/picture_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "platform/errors/guard.h"

namespace varek {

PictureView::PictureView(QWidget* parent) : QWidget(parent) { setMouseTracking(true); }

void PictureView::SetPicture(const QPixmap& picture) {
  if (picture_ == &picture) return;
  picture_ = &picture;
  update();
}

void PictureView::OnMouse(std::string place, std::function<void()> moved,
                          std::function<void()> left) {
  place_ = std::move(place);
  moved_ = std::move(moved);
  left_ = std::move(left);
}

void PictureView::paintEvent(QPaintEvent*) {
  if (!picture_) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect(), *picture_);
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
  if (moved_) platform::Guarded(place_, moved_);
  event->accept();
}

void PictureView::leaveEvent(QEvent*) {
  if (left_) platform::Guarded(place_, left_);
}

}  // namespace varek
