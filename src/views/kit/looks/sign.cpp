#include "views/kit/looks/sign.h"

#include <QPainter>
#include <QPolygonF>

#include "drawing/palette.h"
#include "views/kit/looks/colors.h"

namespace varek {

namespace {

// All lengths are parts of the picture's side.
constexpr double kRounding = 0.12;
constexpr double kStroke = 0.1;
constexpr double kDot = 0.06;
const QPolygonF kTriangle({{0.5, 0.13}, {0.92, 0.86}, {0.08, 0.86}});
const QRectF kDisc(0.06, 0.06, 0.88, 0.88);

struct Mark {
  QPointF strokeFrom;
  QPointF strokeTo;
  QPointF dot;
};
const Mark kExclamation{{0.5, 0.38}, {0.5, 0.6}, {0.5, 0.75}};
const Mark kLetterI{{0.5, 0.48}, {0.5, 0.72}, {0.5, 0.3}};

void DrawShape(QPainter& painter, Sign sign, const QColor& color) {
  painter.setBrush(color);
  painter.setPen(QPen(color, kRounding, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  if (sign == Sign::Warning) return painter.drawPolygon(kTriangle);
  painter.setPen(Qt::NoPen);
  painter.drawEllipse(kDisc);
}

void DrawMark(QPainter& painter, const Mark& mark) {
  const QColor color = ToQColor(palette::kWindow);
  painter.setPen(QPen(color, kStroke, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(mark.strokeFrom, mark.strokeTo);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawEllipse(mark.dot, kDot, kDot);
}

}  // namespace

QPixmap SignPicture(Sign sign, int side, qreal ratio) {
  QPixmap picture(QSize(side, side) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(side, side);
  const bool warning = sign == Sign::Warning;
  DrawShape(painter, sign, ToQColor(warning ? palette::kWarning : palette::kAccent));
  DrawMark(painter, warning ? kExclamation : kLetterI);
  return picture;
}

}  // namespace varek
