#include "pictures/canvas.h"

#include <QLinearGradient>
#include <algorithm>
#include <stdexcept>
#include <string>

namespace varek::pictures {

namespace {

constexpr int kBestQuality = 100;

int Between(int from, int to, double share) {
  return from + static_cast<int>((to - from) * std::clamp(share, 0.0, 1.0));
}

}  // namespace

QColor Ink(platform::Color color) { return {color.red, color.green, color.blue}; }

QColor Blend(const QColor& from, const QColor& to, double share) {
  return {Between(from.red(), to.red(), share), Between(from.green(), to.green(), share),
          Between(from.blue(), to.blue(), share)};
}

QBrush Downwards(const QRectF& rect, const QColor& upper, const QColor& lower) {
  QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
  gradient.setColorAt(0, upper);
  gradient.setColorAt(1, lower);
  return gradient;
}

QFont Letters(double pixels, bool bold) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(std::max(1, qRound(pixels)));
  font.setBold(bold);
  return font;
}

Canvas::Canvas(int width, int height, const QColor& ground)
    : image_(width, height, ground.alpha() == 255 ? QImage::Format_RGB32 : QImage::Format_ARGB32) {
  image_.fill(ground);
  painter_.begin(&image_);
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

const QImage& Canvas::Finish() {
  painter_.end();
  return image_;
}

void Canvas::Save(const std::filesystem::path& path) {
  if (!Finish().save(QString::fromStdString(path.string()), nullptr, kBestQuality)) {
    throw std::runtime_error("cannot write " + path.string());
  }
}

}  // namespace varek::pictures
