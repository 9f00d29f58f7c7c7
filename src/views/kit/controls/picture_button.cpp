#include "views/kit/controls/picture_button.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <utility>

#include "drawing/palette.h"
#include "platform/time/events.h"
#include "views/kit/controls/keys.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/pictures.h"
#include "views/kit/looks/style.h"

namespace varek {

namespace {

constexpr int kTextMargin = 4;
constexpr double kDisabledOpacity = 0.4;

}  // namespace

PictureButton::PictureButton(QWidget* parent, const QString& picture, std::string place,
                             std::function<void()> act)
    : QWidget(parent), place_(std::move(place)), act_(std::move(act)) {
  const std::string name = picture.toStdString();
  for (size_t i = 0; i < pictures_.size(); ++i)
    pictures_[i] = LoadPicture(name + std::to_string(i) + ".jpg");
  setMouseTracking(true);
  setFocusPolicy(Qt::TabFocus);
  setCursor(Qt::ArrowCursor);
  resize(sizeHint());
}

void PictureButton::SetText(const QString& text) {
  text_ = text;
  setAccessibleName(text);
  update();
}

QSize PictureButton::sizeHint() const { return pictures_[0].size(); }

void PictureButton::ShowPicture(ButtonPicture picture) {
  if (showing_ == picture) return;
  showing_ = picture;
  update();
}

/// From the event loop: the action may destroy the button, or wait while others do.
void PictureButton::Act() {
  platform::Post(place_, [button = QPointer(this)] {
    if (!button) return;
    const std::function<void()> act = button->act_;
    act();
  });
}

void PictureButton::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) ShowPicture(ButtonPicture::Pressed);
}

void PictureButton::mouseMoveEvent(QMouseEvent* event) {
  const bool over = rect().contains(event->position().toPoint());
  ShowPicture(over ? ButtonPicture::Hover : ButtonPicture::Normal);
}

void PictureButton::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  ShowPicture(ButtonPicture::Normal);
  if (rect().contains(event->position().toPoint())) Act();
}

void PictureButton::leaveEvent(QEvent*) { ShowPicture(ButtonPicture::Normal); }

void PictureButton::keyPressEvent(QKeyEvent* event) {
  if (!IsClickKey(event->key())) return QWidget::keyPressEvent(event);
  if (event->isAutoRepeat()) return;
  keyDown_ = true;
  ShowPicture(ButtonPicture::Pressed);
}

void PictureButton::keyReleaseEvent(QKeyEvent* event) {
  if (!IsClickKey(event->key())) return QWidget::keyReleaseEvent(event);
  // A key that went down elsewhere, as on the dialog that gave the focus back, is not for us.
  if (event->isAutoRepeat() || !keyDown_) return;
  keyDown_ = false;
  ShowPicture(ButtonPicture::Normal);
  Act();
}

void PictureButton::focusOutEvent(QFocusEvent* event) {
  keyDown_ = false;
  ShowPicture(ButtonPicture::Normal);
  QWidget::focusOutEvent(event);
}

void PictureButton::changeEvent(QEvent* event) {
  if (event->type() == QEvent::EnabledChange) ShowPicture(ButtonPicture::Normal);
  QWidget::changeEvent(event);
}

void PictureButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (!isEnabled()) painter.setOpacity(kDisabledOpacity);
  painter.drawPixmap(rect(), pictures_[static_cast<size_t>(showing_)]);
  PaintText(painter);
  if (!hasFocus()) return;
  painter.setPen(ToQColor(palette::kAccent));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void PictureButton::PaintText(QPainter& painter) const {
  const QRect room = rect().adjusted(kTextMargin, 0, -kTextMargin, 0);
  painter.setFont(FittingFont(font(), text_, room.size()));
  painter.setPen(ToQColor(palette::kText));
  painter.drawText(room, kFittingText, text_);
}

}  // namespace varek
