// Writes the icons of the tray, in all the sizes that desktops ask for, and that of the windows.
#include <QBuffer>
#include <QByteArray>
#include <QDataStream>
#include <QFile>
#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include "pictures/canvas.h"
#include "pictures/pictograms.h"
#include "pictures/pictures.h"

namespace varek::pictures {

namespace {

constexpr std::array kSizes{16, 22, 24, 32, 48, 64};

constexpr platform::Color kWhite{255, 255, 255};
constexpr platform::Color kBlack{12, 14, 18};

/// A tile of its own colour makes an icon stand out from light and dark desktops alike.
struct Icon {
  Pictogram sign;
  platform::Color tile;
  platform::Color line;
};

/// By stage.
constexpr std::array<Icon, 9> kIcons{{
    {MainsPresent, {38, 140, 74}, kWhite},
    {Unlinked, {104, 114, 126}, kWhite},
    {Charging, {0, 128, 150}, kWhite},
    {BatteryTest, {62, 92, 200}, kWhite},
    {Hot, {222, 96, 24}, kWhite},
    {Fault, {26, 28, 34}, {250, 84, 72}},
    {Overloaded, {150, 52, 160}, kWhite},
    {BatteryInUse, {240, 180, 40}, kBlack},
    {BatteryLow, {200, 30, 30}, kWhite},
}};

void DrawIcon(Canvas& canvas, const Icon& icon) {
  const double edge = canvas.Area().width();
  canvas.Painter().setPen(Qt::NoPen);
  canvas.Painter().setBrush(Ink(icon.tile));
  canvas.Painter().drawRoundedRect(canvas.Area(), edge / 4, edge / 4);
  const double margin = edge / 10;
  icon.sign(Sketch(canvas.Painter(), canvas.Area().adjusted(margin, margin, -margin, -margin),
                   {Ink(icon.line), Ink(icon.line), Ink(icon.tile)}));
}

QByteArray Png(const Icon& icon, int size) {
  Canvas canvas(size, size, Qt::transparent);
  DrawIcon(canvas, icon);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  canvas.Finish().save(&buffer, "PNG");
  return bytes;
}

/// An icon file: a head, an entry for each size, then the pictures themselves. The layout is fixed.
void WriteIcon(QDataStream& file, const std::vector<QByteArray>& pictures) {
  constexpr quint16 kIsIcon = 1;
  constexpr quint16 kPlanes = 1;
  constexpr quint16 kBitsPerPixel = 32;
  constexpr quint32 kHeadSize = 6;
  constexpr quint32 kEntrySize = 16;
  file.setByteOrder(QDataStream::LittleEndian);
  file << quint16{0} << kIsIcon << static_cast<quint16>(pictures.size());
  quint32 offset = kHeadSize + kEntrySize * static_cast<quint32>(pictures.size());
  for (size_t index = 0; index < pictures.size(); ++index) {
    const auto edge = static_cast<quint8>(kSizes.at(index));
    const auto length = static_cast<quint32>(pictures[index].size());
    file << edge << edge << quint8{0} << quint8{0};  // no colour table; reserved
    file << kPlanes << kBitsPerPixel << length << offset;
    offset += length;
  }
  for (const QByteArray& picture : pictures) file.device()->write(picture);
}

void MakeIcon(const std::filesystem::path& path, const Icon& icon) {
  std::vector<QByteArray> pictures;
  for (const int size : kSizes) pictures.push_back(Png(icon, size));
  QFile file(QString::fromStdString(path.string()));
  const bool open = file.open(QIODevice::WriteOnly);
  QDataStream stream(&file);
  if (open) WriteIcon(stream, pictures);
  if (!open || stream.status() != QDataStream::Ok || !file.flush()) {
    throw std::runtime_error("cannot write " + path.string());
  }
}

void MakeWindowIcon(const std::filesystem::path& path) {
  constexpr int kEdge = 128;
  Canvas canvas(kEdge, kEdge, Qt::transparent);
  canvas.Painter().setPen(QPen(Ink(palette::kPanelEdge), 3));
  canvas.Painter().setBrush(Ink(palette::kPanel));
  canvas.Painter().drawRoundedRect(canvas.Area().adjusted(2, 2, -2, -2), 26, 26);
  ProgramSign(Sketch(canvas.Painter(), {20, 20, 88, 88},
                     {Ink(palette::kText), Ink(palette::kAccent), Ink(palette::kPanel)}));
  canvas.Save(path);
}

}  // namespace

void MakeIcons(const std::filesystem::path& folder) {
  for (size_t stage = 0; stage < kIcons.size(); ++stage) {
    MakeIcon(folder / ("Ico" + std::to_string(stage) + ".ico"), kIcons.at(stage));
  }
  MakeWindowIcon(folder / "varek.png");
}

}  // namespace varek::pictures
