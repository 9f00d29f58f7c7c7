// A pixel picture: what the instruments, the charts and the web pictures are drawn on. Coordinates
// are pixels from the upper left corner; whatever lies outside is clipped. The pen (line width and
// style, text colour and size) is the surface's and stays until it is set anew.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class QImage;

namespace platform {

/// 0 to 255 each.
struct Color {
  uint8_t red = 0;
  uint8_t green = 0;
  uint8_t blue = 0;
  bool operator==(const Color&) const = default;
};

struct Rect {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
  bool operator==(const Rect&) const = default;
};

struct Segment {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  bool operator==(const Segment&) const = default;
};

enum class LineStyle { Solid, Dotted };

class Surface final {
 public:
  /// A size below 1 gives an empty surface, on which drawing does nothing. Starts black.
  Surface(int width = 0, int height = 0);
  /// Reads a picture file (JPEG, BMP, PNG, ICO). Throws RuntimeError 53 when the file does not
  /// exist and 481 when it is no picture.
  explicit Surface(const std::string& path);
  ~Surface();
  Surface(Surface&& other) noexcept;
  Surface& operator=(Surface&& other) noexcept;

  int Width() const;
  int Height() const;
  /// Makes it another size, black all over. The size that it has changes nothing.
  void Resize(int width, int height);
  void Clear(Color color);

  /// In pixels, at least 1; starts at 1.
  void SetLineWidth(int pixels);
  void SetLineStyle(LineStyle style);
  /// Smooth lines and circles blend with what they cross; plain ones have their own colour only,
  /// so that it can be read back. Starts plain.
  void SetSmooth(bool smooth);
  void Line(double x1, double y1, double x2, double y2, Color color);
  /// Lines all in one colour, at a fraction of the cost of as many calls of Line.
  void Segments(const std::vector<Segment>& segments, Color color);
  void Circle(double x, double y, double radius, Color color);
  void Rectangle(const Rect& rect, Color color);
  void Fill(const Rect& rect, Color color);

  void SetTextColor(Color color);
  /// Height of the letters in pixels; starts at 12.
  void SetTextSize(int pixels);
  /// Prints `text` with its upper left corner at (x, y).
  void Text(double x, double y, const std::string& text);
  /// Width in pixels that Text would take.
  int TextWidth(const std::string& text) const;
  int TextHeight() const;

  /// Copies all of `source`, unscaled, to (x, y).
  void Copy(const Surface& source, int x = 0, int y = 0);
  /// Copies the part `from` of `source`, stretched, over the part `to`. An empty part on either
  /// side copies nothing.
  void Stretch(const Rect& to, const Surface& source, const Rect& from);

  /// Black outside.
  Color Pixel(int x, int y) const;
  /// Writes a Windows BMP; throws RuntimeError 75.
  void SaveBmp(const std::string& path) const;

  /// For the windows that show it.
  const QImage& Image() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
