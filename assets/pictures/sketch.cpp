#include "pictures/sketch.h"

#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>

#include "pictures/canvas.h"

namespace varek::pictures {

Sketch::Sketch(QPainter& painter, const QRectF& square, const Inks& inks)
    : painter_(&painter),
      place_(
          QTransform::fromTranslate(square.x(), square.y()).scale(square.width(), square.height())),
      inks_(inks) {}

Sketch Sketch::Part(const QRectF& square) const {
  Sketch part = *this;
  part.place_.translate(square.x(), square.y()).scale(square.width(), square.height());
  return part;
}

Sketch Sketch::With(const Inks& inks) const {
  Sketch other = *this;
  other.inks_ = inks;
  return other;
}

void Sketch::Turn(double angle) { place_.translate(0.5, 0.5).rotate(angle).translate(-0.5, -0.5); }

QPainter& Sketch::Placed() {
  painter_->setTransform(place_);
  return *painter_;
}

void Sketch::Pen(const QColor& color, double width) {
  Placed().setBrush(Qt::NoBrush);
  painter_->setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void Sketch::Fill(const QColor& color) {
  Placed().setPen(Qt::NoPen);
  painter_->setBrush(color);
}

void Sketch::Line(std::initializer_list<QPointF> points, const QColor& color, double width) {
  Pen(color, width);
  painter_->drawPolyline(QPolygonF(points));
}

void Sketch::Shape(std::initializer_list<QPointF> corners, const QColor& color) {
  Fill(color);
  painter_->drawPolygon(QPolygonF(corners));
}

void Sketch::Box(const QRectF& rect, const QColor& color, double rounding) {
  Fill(color);
  painter_->drawRoundedRect(rect, rounding, rounding);
}

void Sketch::Frame(const QRectF& rect, const QColor& color, double rounding) {
  Pen(color);
  painter_->drawRoundedRect(rect, rounding, rounding);
}

void Sketch::Disc(QPointF centre, double radius, const QColor& color) {
  Fill(color);
  painter_->drawEllipse(centre, radius, radius);
}

void Sketch::Ring(QPointF centre, double radius, const QColor& color) {
  Pen(color);
  painter_->drawEllipse(centre, radius, radius);
}

void Sketch::Arc(QPointF centre, double radius, double start, double span, const QColor& color,
                 double width) {
  const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  QPainterPath path;
  path.arcMoveTo(circle, start);
  path.arcTo(circle, start, span);
  Pen(color, width);
  painter_->drawPath(path);
}

void Sketch::Wave(const QRectF& rect, const QColor& color) {
  const double quarter = rect.width() / 4;
  QPainterPath path(QPointF(rect.left(), rect.center().y()));
  path.cubicTo(rect.left() + quarter, rect.top() - rect.height() / 3, rect.left() + quarter,
               rect.top() - rect.height() / 3, rect.center().x(), rect.center().y());
  path.cubicTo(rect.right() - quarter, rect.bottom() + rect.height() / 3, rect.right() - quarter,
               rect.bottom() + rect.height() / 3, rect.right(), rect.center().y());
  Pen(color);
  painter_->drawPath(path);
}

void Sketch::Word(const QRectF& rect, const char* text, const QColor& color) {
  QPainterPath path;
  path.addText(0, 0, Letters(100, true), QString::fromUtf8(text));
  const QRectF size = path.boundingRect();
  const double scale = std::min(rect.width() / size.width(), rect.height() / size.height());
  QTransform fitted = QTransform::fromTranslate(rect.center().x(), rect.center().y());
  fitted.scale(scale, scale).translate(-size.center().x(), -size.center().y());
  Placed().fillPath(fitted.map(path), color);
}

}  // namespace varek::pictures
