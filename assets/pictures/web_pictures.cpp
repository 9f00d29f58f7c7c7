// The pictures of the web pages: signs for the calendars, the way of the current and the battery
// for the status page, and empty charts. The server's tables name jpg files, which browsers refuse
// from a bare reply, so that each has a gif twin.
#include <stdexcept>
#include <string>

#include "pictures/canvas.h"
#include "pictures/gif.h"
#include "pictures/pictograms.h"
#include "pictures/pictures.h"
#include "pictures/signs.h"

namespace varek::pictures {

namespace {

namespace fs = std::filesystem;

constexpr platform::Color kGround = palette::kPanel;   ///< that of panels and calendar cells
constexpr platform::Color kLightAlarm{240, 110, 100};  ///< for thin lines on the ground

QColor InkOf(Tone tone) {
  switch (tone) {
    case Tone::Plain:
      return Ink(palette::kText);
    case Tone::Good:
      return Ink(palette::kGood);
    case Tone::Active:
      return Ink(palette::kAccent);
    case Tone::Warning:
      return Ink(palette::kWarning);
    case Tone::Alarm:
      return Ink(kLightAlarm);
  }
  return Ink(palette::kText);
}

Inks InksOf(Tone tone) { return {Ink(palette::kText), InkOf(tone), Ink(kGround)}; }

// ---- Signs: calendar pictures, battery, the program's own.

QImage DrawSign(const Sign& sign, int size) {
  const double margin = size / 24.0;
  Canvas canvas(size, size, Ink(kGround));
  sign.pictogram(Sketch(canvas.Painter(),
                        QRectF(margin, margin, size - 2 * margin, size - 2 * margin),
                        InksOf(sign.tone)));
  return canvas.Finish();
}

void SaveTwins(const QImage& image, const fs::path& folder, const std::string& name) {
  constexpr int kBestQuality = 100;
  SaveGif(image, folder / (name + ".gif"));
  const fs::path twin = folder / (name + ".jpg");
  if (!image.save(QString::fromStdString(twin.string()), nullptr, kBestQuality)) {
    throw std::runtime_error("cannot write " + twin.string());
  }
}

/// In the order of kActionSigns.
constexpr const char* kActionNames[] = {"QTest",       "TestLOW",          "CancelTest",
                                        "shutdown",    "shutdownandstart", "SysDownUPSDown",
                                        "SysDownUPSR", "SysDown"};

void MakeCalendarSigns(const fs::path& folder) {
  for (size_t index = 0; index < std::size(kActionNames); ++index) {
    SaveTwins(DrawSign(kActionSigns[index], 32), folder, kActionNames[index]);
  }
  for (size_t index = 0; index < std::size(kEventSigns); ++index) {
    SaveTwins(DrawSign(kEventSigns[index], 24), folder, "ev" + std::to_string(index + 1));
  }
}

void MakeSigns(const fs::path& folder) {
  SaveGif(DrawSign({BatteryGood, Tone::Good}, 72), folder / "BatteryOK.gif");
  SaveGif(DrawSign({BatteryFailed, Tone::Alarm}, 72), folder / "BatteryFail.gif");
  SaveGif(DrawSign({BatteryInUse, Tone::Active}, 72), folder / "batteryOKTest.gif");
  SaveGif(DrawSign({ProgramSign, Tone::Active}, 32), folder / "varek.gif");
}

// ---- The way of the current from the mains, the battery or both to the load.

constexpr QRectF kMains(6, 8, 44, 44);
constexpr QRectF kUnit(92, 8, 44, 44);
constexpr QRectF kLoad(182, 8, 44, 44);
constexpr QRectF kBattery(92, 64, 44, 36);

/// What the unit does with the current, and where it comes from.
struct Way {
  const char* name;
  Pictogram unit;
  Tone tone;
  bool fromBattery;
};

constexpr Way kWays[] = {
    {"OnNormal", DoubleConversion, Tone::Good, false},
    {"OnPass", BypassRoute, Tone::Warning, false},
    {"OnFail", DoubleConversion, Tone::Alarm, true},
    {"OffNormal", Standby, Tone::Good, false},
    {"OffPass", VoltageRegulation, Tone::Active, false},
    {"OffFail", DoubleConversion, Tone::Alarm, true},
};

/// Of an arrow from `from` to `to`, in pixels; it ends in a tip when it carries current.
void DrawWay(Canvas& canvas, QPointF from, QPointF to, bool carries, Tone tone) {
  const QColor color = carries ? InkOf(tone) : Ink(palette::kPanelEdge);
  canvas.Painter().resetTransform();
  canvas.Painter().setPen(QPen(color, 4, Qt::SolidLine, Qt::RoundCap));
  canvas.Painter().drawLine(from, to);
  if (!carries) return;
  const QPointF ahead = (to - from) / QLineF(from, to).length() * 9;
  const QPointF aside(ahead.y(), ahead.x());
  canvas.Painter().setBrush(color);
  canvas.Painter().setPen(Qt::NoPen);
  canvas.Painter().drawPolygon(QPolygonF({to + ahead / 2, to - ahead + aside, to - ahead - aside}));
}

void DrawSignAt(Canvas& canvas, const QRectF& place, Pictogram pictogram, Tone tone) {
  pictogram(Sketch(canvas.Painter(), place, InksOf(tone)));
}

void MakeWay(const fs::path& folder, const Way& way) {
  Canvas canvas(232, 104, Ink(kGround));
  const double line = kMains.center().y();
  DrawWay(canvas, {58, line}, {82, line}, !way.fromBattery, way.tone);
  DrawWay(canvas, {146, line}, {170, line}, true, way.tone);
  DrawWay(canvas, {114, 68}, {114, 60}, way.fromBattery, way.tone);
  DrawSignAt(canvas, kMains, way.fromBattery ? MainsFailed : MainsPresent,
             way.fromBattery ? Tone::Alarm : Tone::Good);
  DrawSignAt(canvas, kUnit, way.unit, way.tone);
  DrawSignAt(canvas, kLoad, ComputerOn, Tone::Plain);
  DrawSignAt(canvas, {kBattery.x() + 4, kBattery.y(), 36, 36},
             way.fromBattery ? BatteryInUse : BatteryGood,
             way.fromBattery ? Tone::Alarm : Tone::Good);
  SaveGif(canvas.Finish(), folder / (std::string(way.name) + ".gif"));
}

// ---- Charts before there is anything to draw.

void MakeEmptyChart(const fs::path& path, int width, int height) {
  Canvas canvas(width, height, Qt::white);
  const double edge = height / 3.0;
  History(Sketch(canvas.Painter(), {(width - edge) / 2, (height - edge) / 2, edge, edge},
                 {Ink(palette::kMuted), Ink(palette::kMuted), Qt::white}));
  canvas.Save(path);
}

}  // namespace

void MakeWebPictures(const fs::path& folder) {
  MakeCalendarSigns(folder);
  MakeSigns(folder);
  for (const Way& way : kWays) MakeWay(folder, way);
  MakeEmptyChart(folder / "bettery.bmp", 220, 145);
  MakeEmptyChart(folder / "temperature.bmp", 220, 145);
  MakeEmptyChart(folder / "chart.bmp", 385, 270);
}

}  // namespace varek::pictures
