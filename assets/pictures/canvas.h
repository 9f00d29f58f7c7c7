// A picture being made: an image with a smooth painter on it, and the few paints that all pictures
// share.
#pragma once

#include <QBrush>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <filesystem>

#include "drawing/palette.h"

namespace varek::pictures {

QColor Ink(platform::Color color);

/// From `from` (share 0) to `to` (share 1).
QColor Blend(const QColor& from, const QColor& to, double share);

/// Runs from `upper` at the top of `rect` to `lower` at its bottom.
QBrush Downwards(const QRectF& rect, const QColor& upper, const QColor& lower);

/// The pictures' typeface, letters `pixels` high.
QFont Letters(double pixels, bool bold = false);

class Canvas final {
 public:
  /// Begins as `ground` all over.
  Canvas(int width, int height, const QColor& ground);

  QPainter& Painter() { return painter_; }
  QRectF Area() const { return image_.rect(); }
  /// Ends the painting; the painter can't be used any more.
  const QImage& Finish();
  /// Finishes and writes `path`, its form by the ending. Throws std::runtime_error.
  void Save(const std::filesystem::path& path);

 private:
  QImage image_;
  QPainter painter_;
};

}  // namespace varek::pictures
