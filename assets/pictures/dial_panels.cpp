// Draws the dial panels: background, faces with their scales, empty bars and the plates behind the
// readings. Whatever moves is drawn by the program.
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <string>

#include "pictures/canvas.h"
#include "pictures/pictures.h"
#include "pictures/scales.h"

namespace varek::pictures {

namespace {

constexpr double kHubRoom = 18;  ///< how far a half dial reaches beyond its centre, design units
constexpr double kLeastNumeral = 8;  ///< pixels; smaller letters can't be read

struct Panel {
  const char* prefix;  ///< of the picture's name
  bool hasTemperature;
  bool hasLoad;
};

constexpr Panel kPanels[] = {
    {"instrument", true, true},
    {"OFFinstrument", false, true},
    {"NoLoadinstrument", false, false},
};

/// One panel that is being drawn: where its pixels go and how large a design unit is.
struct Work {
  QPainter& painter;
  const SizeClass& sizeClass;
  double factor;

  QRectF Pixels(const Area& area) const {
    return {qRound(area.left * factor) + 0.5, qRound(area.top * factor) + 0.5,
            static_cast<double>(qRound(area.width * factor)),
            static_cast<double>(qRound(area.height * factor))};
  }
};

QPointF ToQt(Point point) { return {point.x, point.y}; }

void PrintMiddle(QPainter& painter, QPointF middle, const QString& text) {
  const QRectF tight = QFontMetricsF(painter.font()).tightBoundingRect(text);
  painter.drawText(middle - tight.center(), text);
}

void DrawBackground(const Work& work) {
  const QRectF area(0, 0, work.sizeClass.designWidth, work.sizeClass.designHeight);
  const QColor panel = Ink(palette::kPanel);
  work.painter.fillRect(area, Downwards(area, panel.lighter(112), panel.darker(112)));
}

void DrawName(const Work& work) {
  const QPointF start(24 * work.factor, 48 * work.factor);
  QFont font = Letters(22 * work.factor, true);
  font.setLetterSpacing(QFont::AbsoluteSpacing, 7 * work.factor);
  work.painter.setFont(font);
  work.painter.setPen(Ink(palette::kMuted));
  work.painter.drawText(start, QStringLiteral("VAREK"));
  work.painter.fillRect(QRectF(start.x(), qRound(60 * work.factor), 270 * work.factor, 1),
                        Ink(palette::kPanelEdge));
  work.painter.fillRect(QRectF(start.x(), qRound(60 * work.factor), 34 * work.factor, 1),
                        Ink(palette::kAccent));
}

void DrawPlate(const Work& work, const Area& plate) {
  work.painter.setPen(QPen(Ink(palette::kPanelEdge), 1));
  work.painter.setBrush(Ink(palette::kFace));
  work.painter.drawRoundedRect(work.Pixels(plate), 4 * work.factor, 4 * work.factor);
}

void DrawGroup(const Work& work, const Area& plate) {
  work.painter.setPen(QPen(Ink(palette::kPanelEdge), 1));
  work.painter.setBrush(Blend(Ink(palette::kWindow), Ink(palette::kPanel), 0.4));
  work.painter.drawRoundedRect(work.Pixels(plate), 7 * work.factor, 7 * work.factor);
}

/// A circle, or of a half dial only the half that the needle sweeps and the space of the hub.
QPainterPath Outline(Needle needle, QPointF centre, double radius, double hubRoom) {
  QPainterPath circle;
  circle.addEllipse(centre, radius, radius);
  if (needle == Needle::Main) return circle;
  const double left = needle == Needle::Left ? centre.x() - radius : centre.x() - hubRoom;
  QPainterPath half;
  half.addRect(left, centre.y() - radius, radius + hubRoom, 2 * radius);
  return circle & half;
}

void DrawFace(const Work& work, const DialScale& scale) {
  const Dial& dial = DialOf(scale.dial);
  const QPointF centre = ToQt(DialCentre(dial, work.factor));
  const double rim = scale.rimRadius * work.factor;
  const double face = scale.faceRadius * work.factor;
  const double hubRoom = kHubRoom * work.factor;
  const QPainterPath bezel = Outline(dial.needle, centre, rim, hubRoom);
  const QColor edge = Ink(palette::kPanelEdge);
  work.painter.setPen(QPen(Ink(palette::kWindow), 1));
  work.painter.setBrush(Downwards(bezel.boundingRect(), edge.lighter(150), edge.darker(150)));
  work.painter.drawPath(bezel);

  QRadialGradient shade(centre, face);
  shade.setColorAt(0, Ink(palette::kFace).lighter(150));
  shade.setColorAt(1, Ink(palette::kFace));
  work.painter.setBrush(shade);
  work.painter.drawPath(Outline(dial.needle, centre, face, hubRoom - (rim - face)));
}

void DrawTicks(const Work& work, const DialScale& scale) {
  for (int value = 0; value <= FullScale(scale); value += scale.minorStep) {
    const bool major = value % scale.majorStep == 0;
    const Tick tick = DialTick(scale, value, work.factor);
    const double width = (major ? 2.0 : 1.4) * std::max(work.factor, 0.9);
    work.painter.setPen(
        QPen(Ink(major ? palette::kScale : palette::kMuted), width, Qt::SolidLine, Qt::FlatCap));
    work.painter.drawLine(ToQt(tick.start), ToQt(tick.end));
  }
}

void DrawNumerals(const Work& work, const DialScale& scale) {
  work.painter.setPen(Ink(palette::kScale));
  for (int value = 0; value <= FullScale(scale); value += scale.numeralStep) {
    PrintMiddle(work.painter, ToQt(NumeralPlace(scale, value, work.factor)),
                QString::number(value));
  }
}

/// The unit stands where no needle of a healthy supply passes: below the hub, on half dials at a
/// fifth of the scale.
void DrawUnit(const Work& work, const DialScale& scale) {
  const Dial& dial = DialOf(scale.dial);
  const double angle = dial.needle == Needle::Main ? 90 : TargetAngle(dial, 0.2 * dial.fullScale);
  const Point place = OnDial(dial, work.factor, angle, scale.numeralRadius * work.factor / 2);
  work.painter.setPen(Ink(palette::kMuted));
  PrintMiddle(work.painter, ToQt(place), QString::fromUtf8(scale.unit));
}

void DrawHub(const Work& work, const DialScale& scale) {
  constexpr double kHubRadius = 5;
  work.painter.setPen(Qt::NoPen);
  work.painter.setBrush(Ink(palette::kPanelEdge));
  work.painter.drawEllipse(ToQt(DialCentre(DialOf(scale.dial), work.factor)),
                           kHubRadius * work.factor, kHubRadius * work.factor);
}

void DrawDial(const Work& work, const DialScale& scale) {
  DrawFace(work, scale);
  DrawHub(work, scale);
  DrawTicks(work, scale);
  work.painter.setFont(Letters(std::max(scale.numeralSize * work.factor, kLeastNumeral)));
  DrawNumerals(work, scale);
  DrawUnit(work, scale);
  DrawPlate(work, DialOf(scale.dial).plate);
}

void DrawTrough(const Work& work, const BarScale& scale) {
  const platform::Rect place = BarPlace(scale.bar, work.sizeClass);
  const QRectF trough(place.left, place.top, place.width, place.height);
  work.painter.setPen(Qt::NoPen);
  work.painter.setBrush(Ink(palette::kPanelEdge));
  work.painter.drawRoundedRect(trough.adjusted(-2, -2, 2, 2), 3, 3);
  work.painter.fillRect(trough.adjusted(-1, -1, 1, 1), Ink(palette::kWindow).darker(150));
  work.painter.fillRect(trough, Ink(palette::kFace));
}

/// A bar's ticks and numerals stand left of it, ending at its frame.
void DrawBarTicks(const Work& work, const BarScale& scale) {
  const double end = BarPlace(scale.bar, work.sizeClass).left - 3;
  const int full = static_cast<int>(scale.bar.fullScale);
  for (int percent = 0; percent <= full; percent += scale.minorStep) {
    const bool major = percent % scale.majorStep == 0;
    const double length = qRound((major ? 5 : 3) * work.factor);
    work.painter.fillRect(
        QRectF(end - length, BarTickRow(scale.bar, percent, work.sizeClass), length, 1),
        Ink(percent >= scale.alarmFrom ? palette::kAlarm
                                       : (major ? palette::kScale : palette::kMuted)));
  }
}

void DrawBarNumerals(const Work& work, const BarScale& scale) {
  const double end = BarPlace(scale.bar, work.sizeClass).left - 4 - 5 * work.factor;
  work.painter.setFont(Letters(std::max(9 * work.factor, kLeastNumeral)));
  work.painter.setPen(Ink(palette::kScale));
  for (int percent = 0; percent <= scale.lastNumeral; percent += scale.majorStep) {
    const QString text = QString::number(percent);
    const double half = QFontMetricsF(work.painter.font()).tightBoundingRect(text).width() / 2;
    PrintMiddle(work.painter, {end - half, BarTickRow(scale.bar, percent, work.sizeClass) + 0.5},
                text);
  }
}

void DrawBar(const Work& work, const BarScale& scale) {
  DrawPlate(work, scale.bar.plate);
  DrawTrough(work, scale);
  DrawBarTicks(work, scale);
  DrawBarNumerals(work, scale);
}

void DrawBars(const Work& work, bool hasLoad) {
  DrawGroup(work, hasLoad ? kTwoBarsPlate : kBatteryAlonePlate);
  if (!hasLoad) return DrawBar(work, kBatteryAloneScale);
  DrawBar(work, kLoadScale);
  DrawBar(work, kBatteryWithLoadScale);
}

void DrawPanel(const Work& work, const Panel& panel) {
  DrawBackground(work);
  DrawName(work);
  for (const DialScale& scale : kDialScales) {
    if (scale.dial != kTemperatureDial || panel.hasTemperature) DrawDial(work, scale);
  }
  DrawBars(work, panel.hasLoad);
}

}  // namespace

void MakeDialPanels(const std::filesystem::path& folder) {
  for (const SizeClass& sizeClass : kSizeClasses) {
    for (const Panel& panel : kPanels) {
      Canvas canvas(sizeClass.designWidth, sizeClass.designHeight, Ink(palette::kPanel));
      DrawPanel({canvas.Painter(), sizeClass, sizeClass.sizeFactor}, panel);
      canvas.Save(folder / (panel.prefix + std::string(sizeClass.suffix) + ".jpg"));
    }
  }
}

}  // namespace varek::pictures
