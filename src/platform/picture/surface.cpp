#include "platform/picture/surface.h"

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <algorithm>

#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"

namespace platform {

namespace {

constexpr int kStartTextSize = 12;
constexpr QImage::Format kFormat = QImage::Format_RGB32;

QColor Ink(Color color) { return QColor(color.red, color.green, color.blue); }

QRectF ToQRect(const Rect& rect) { return {rect.left, rect.top, rect.width, rect.height}; }

QImage LoadPicture(const std::string& path) {
  if (!IsFile(path)) throw RuntimeError(errors::kFileNotFound, "File not found: " + path);
  const QImage image(QString::fromStdString(path));
  if (image.isNull()) throw RuntimeError(errors::kInvalidPicture, "Invalid picture: " + path);
  return image.convertToFormat(kFormat);
}

}  // namespace

struct Surface::Impl {
  explicit Impl(QImage picture) : image(std::move(picture)) {}

  /// A painter for one call: none may be open while a window reads the picture.
  struct Brush final : QPainter {
    explicit Brush(Impl& surface) : QPainter(&surface.image) {
      setRenderHint(QPainter::Antialiasing, surface.smooth);
    }
  };

  QPen Pen(Color color) const {
    QPen pen(Ink(color), lineWidth);
    pen.setStyle(style == LineStyle::Dotted ? Qt::DotLine : Qt::SolidLine);
    pen.setCapStyle(Qt::FlatCap);
    return pen;
  }

  QFont Font() const {
    QFont font;
    font.setPixelSize(textSize);
    return font;
  }

  QImage image;
  int lineWidth = 1;
  LineStyle style = LineStyle::Solid;
  bool smooth = false;
  Color textColor;
  int textSize = kStartTextSize;
};

Surface::Surface(int width, int height)
    : impl_(std::make_unique<Impl>(QImage(std::max(width, 0), std::max(height, 0), kFormat))) {
  Clear(Color{});
}

Surface::Surface(const std::string& path) : impl_(std::make_unique<Impl>(LoadPicture(path))) {}

Surface::~Surface() = default;
Surface::Surface(Surface&& other) noexcept = default;
Surface& Surface::operator=(Surface&& other) noexcept = default;

int Surface::Width() const { return impl_->image.width(); }
int Surface::Height() const { return impl_->image.height(); }

void Surface::Resize(int width, int height) {
  if (width == Width() && height == Height()) return;
  impl_->image = QImage(std::max(width, 0), std::max(height, 0), kFormat);
  Clear(Color{});
}

void Surface::Clear(Color color) { impl_->image.fill(Ink(color)); }

void Surface::SetLineWidth(int pixels) { impl_->lineWidth = std::max(pixels, 1); }
void Surface::SetLineStyle(LineStyle style) { impl_->style = style; }
void Surface::SetSmooth(bool smooth) { impl_->smooth = smooth; }

void Surface::Line(double x1, double y1, double x2, double y2, Color color) {
  Impl::Brush painter(*impl_);
  painter.setPen(impl_->Pen(color));
  painter.drawLine(QPointF(x1, y1), QPointF(x2, y2));
}

void Surface::Segments(const std::vector<Segment>& segments, Color color) {
  Impl::Brush painter(*impl_);
  QPen pen = impl_->Pen(color);
  // Wide lines that meet at an angle leave no notch.
  pen.setCapStyle(Qt::SquareCap);
  painter.setPen(pen);
  for (const Segment& line : segments)
    painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
}

void Surface::Circle(double x, double y, double radius, Color color) {
  Impl::Brush painter(*impl_);
  painter.setPen(impl_->Pen(color));
  painter.drawEllipse(QPointF(x, y), radius, radius);
}

void Surface::Rectangle(const Rect& rect, Color color) {
  Impl::Brush painter(*impl_);
  painter.setPen(impl_->Pen(color));
  painter.drawRect(ToQRect(rect));
}

void Surface::Fill(const Rect& rect, Color color) {
  Impl::Brush(*impl_).fillRect(ToQRect(rect), Ink(color));
}

void Surface::SetTextColor(Color color) { impl_->textColor = color; }
void Surface::SetTextSize(int pixels) { impl_->textSize = std::max(pixels, 1); }

void Surface::Text(double x, double y, const std::string& text) {
  Impl::Brush painter(*impl_);
  painter.setFont(impl_->Font());
  painter.setPen(Ink(impl_->textColor));
  painter.drawText(QPointF(x, y + QFontMetrics(painter.font()).ascent()),
                   QString::fromStdString(text));
}

int Surface::TextWidth(const std::string& text) const {
  return QFontMetrics(impl_->Font()).horizontalAdvance(QString::fromStdString(text));
}

int Surface::TextHeight() const { return QFontMetrics(impl_->Font()).height(); }

void Surface::Copy(const Surface& source, int x, int y) {
  Impl::Brush painter(*impl_);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.drawImage(x, y, source.impl_->image);
}

void Surface::Stretch(const Rect& to, const Surface& source, const Rect& from) {
  if (to.width <= 0 || to.height <= 0 || from.width <= 0 || from.height <= 0) return;
  Impl::Brush painter(*impl_);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.drawImage(ToQRect(to), source.impl_->image, ToQRect(from));
}

Color Surface::Pixel(int x, int y) const {
  if (!impl_->image.valid(x, y)) return {};
  const QRgb pixel = impl_->image.pixel(x, y);
  const auto part = [](int value) { return static_cast<uint8_t>(value); };
  return {part(qRed(pixel)), part(qGreen(pixel)), part(qBlue(pixel))};
}

void Surface::SaveBmp(const std::string& path) const {
  if (!impl_->image.save(QString::fromStdString(path), "BMP"))
    throw RuntimeError(errors::kPathAccess, "The picture cannot be written: " + path);
}

const QImage& Surface::Image() const { return impl_->image; }

}  // namespace platform
