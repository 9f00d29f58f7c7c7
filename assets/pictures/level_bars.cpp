// Draws the filled bars: segmented columns, with a zone in another colour.
#include <QLinearGradient>
#include <cmath>
#include <string>

#include "drawing/instruments.h"
#include "pictures/canvas.h"
#include "pictures/pictures.h"

namespace varek::pictures {

namespace {

/// A column's calm colour, and the colour of its rows from `zoneFrom` to `zoneTo`, as shares of
/// the height from below.
struct Column {
  const char* prefix;
  platform::Color calm;
  platform::Color zone;
  double zoneFrom;
  double zoneTo;
};

constexpr Column kColumns[] = {
    {"batterybar", palette::kGood, palette::kWarning, 0, 1.0 / 5},
    {"loadbar", {0, 150, 170}, palette::kAlarm, 100.0 / 120, 1},
};

constexpr int kSegments = 40;
constexpr double kGap = 0.28;         ///< of a segment
constexpr double kDarkestTop = 0.62;  ///< readings are printed on the topmost rows

QColor RowColor(const Column& column, double share, double withinSegment) {
  const bool zone = share >= column.zoneFrom && share < column.zoneTo;
  const QColor color = Ink(zone ? column.zone : column.calm);
  const QColor shaded = Blend(color, Ink(palette::kFace), 0.12 + (kDarkestTop - 0.12) * share);
  return withinSegment < kGap ? Blend(shaded, Ink(palette::kFace), 0.7) : shaded;
}

void DrawRows(Canvas& canvas, const Column& column) {
  const QRectF area = canvas.Area();
  for (int row = 0; row < static_cast<int>(area.height()); ++row) {
    const double share = (area.height() - row - 0.5) / area.height();
    const double segment = share * kSegments;
    canvas.Painter().fillRect(QRectF(0, row, area.width(), 1),
                              RowColor(column, share, segment - std::floor(segment)));
  }
}

/// Darker towards both sides: the column looks round.
void DrawRoundness(Canvas& canvas) {
  QLinearGradient shade(canvas.Area().topLeft(), canvas.Area().topRight());
  shade.setColorAt(0, QColor(0, 0, 0, 90));
  shade.setColorAt(0.4, QColor(0, 0, 0, 0));
  shade.setColorAt(1, QColor(0, 0, 0, 110));
  canvas.Painter().fillRect(canvas.Area(), shade);
}

}  // namespace

void MakeLevelBars(const std::filesystem::path& folder) {
  for (const Column& column : kColumns) {
    for (const SizeClass& sizeClass : kSizeClasses) {
      const BarSize& size = kBarSizes.at(static_cast<size_t>(sizeClass.barIndex));
      Canvas canvas(size.width, size.height, Ink(palette::kFace));
      DrawRows(canvas, column);
      DrawRoundness(canvas);
      canvas.Save(folder / (column.prefix + std::string(sizeClass.suffix) + ".jpg"));
    }
  }
}

}  // namespace varek::pictures
