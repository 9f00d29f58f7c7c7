// Draws in a unit square: (0, 0) is the upper left corner, (1, 1) the lower right. What is sketched
// comes out the same at every size.
#pragma once

#include <QPainter>
#include <QTransform>
#include <initializer_list>

namespace varek::pictures {

/// The three colours of a pictogram.
struct Inks {
  QColor line;    ///< the thing itself
  QColor mark;    ///< what is the matter with it
  QColor ground;  ///< what it stands on, for gaps between the two
};

/// Copies draw on the same picture, each in its own place.
class Sketch final {
 public:
  static constexpr double kLine = 0.08;  ///< the usual width

  /// The sketch covers `square`. `painter` must outlive it; its transform, pen and brush change.
  Sketch(QPainter& painter, const QRectF& square, const Inks& inks);

  const Inks& Colors() const { return inks_; }
  /// A sketch in a part of this one.
  Sketch Part(const QRectF& square) const;
  /// The same place in other colours.
  Sketch With(const Inks& inks) const;

  void Line(std::initializer_list<QPointF> points, const QColor& color, double width = kLine);
  void Shape(std::initializer_list<QPointF> corners, const QColor& color);
  void Box(const QRectF& rect, const QColor& color, double rounding = 0.05);
  void Frame(const QRectF& rect, const QColor& color, double rounding = 0.08);
  void Disc(QPointF centre, double radius, const QColor& color);
  void Ring(QPointF centre, double radius, const QColor& color);
  /// Degrees, from the right against the clock.
  void Arc(QPointF centre, double radius, double start, double span, const QColor& color,
           double width = kLine);
  /// One wave of a sine across `rect`.
  void Wave(const QRectF& rect, const QColor& color);
  void Word(const QRectF& rect, const char* text, const QColor& color);
  /// Turns what follows about the middle, in degrees with the clock.
  void Turn(double angle);

 private:
  QPainter& Placed();
  void Pen(const QColor& color, double width = kLine);
  void Fill(const QColor& color);

  QPainter* painter_;
  QTransform place_;  ///< of the unit square
  Inks inks_;
};

}  // namespace varek::pictures
