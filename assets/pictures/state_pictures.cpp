// The small pictures that stand for a state, an event, an action or a view: tables of pictograms
// and their colours.
#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "pictures/canvas.h"
#include "pictures/pictograms.h"
#include "pictures/pictures.h"
#include "pictures/signs.h"

namespace varek::pictures {

namespace {

namespace fs = std::filesystem;

constexpr platform::Color kWhite{255, 255, 255};

// ---- Lamps: a dark tile with a coloured sign while all is well, a coloured tile otherwise.

enum class Mood { Good, Neutral, Active, Warning, Alarm };

struct Lamp {
  const char* name;
  Pictogram sign;
  Mood mood;
};

constexpr Lamp kLamps[] = {
    {"connect", Linked, Mood::Good},
    {"disconnect", Unlinked, Mood::Alarm},
    {"good", Healthy, Mood::Good},
    {"charge", Charging, Mood::Active},
    {"hot", Hot, Mood::Alarm},
    {"overload", Overloaded, Mood::Alarm},
    {"powerf", MainsFailed, Mood::Alarm},
    {"powerok", MainsPresent, Mood::Good},
    {"batterylow", BatteryLow, Mood::Alarm},
    {"nobatterylow", BatteryFull, Mood::Good},
    {"batteryf", BatteryFailed, Mood::Alarm},
    {"batteryok", BatteryGood, Mood::Good},
    {"testing", BatteryTest, Mood::Active},
    {"notest", NoBatteryTest, Mood::Neutral},
    {"avr", VoltageRegulation, Mood::Active},
    {"offline", Standby, Mood::Neutral},
    {"bypass", BypassRoute, Mood::Warning},
    {"online", DoubleConversion, Mood::Good},
};

struct Tile {
  platform::Color ground;
  platform::Color rim;
  platform::Color line;
  platform::Color mark;
};

Tile TileOf(Mood mood) {
  switch (mood) {
    case Mood::Good:
      return {palette::kPanel, palette::kPanelEdge, palette::kGood, palette::kGood};
    case Mood::Neutral:
      return {palette::kPanel, palette::kPanelEdge, palette::kMuted, palette::kText};
    case Mood::Active:
      return {palette::kPanel, palette::kAccent, palette::kText, palette::kAccent};
    case Mood::Warning:
      return {palette::kWarning, {255, 208, 110}, palette::kFace, palette::kFace};
    case Mood::Alarm:
      return {{190, 44, 40}, {240, 110, 100}, kWhite, {255, 226, 120}};
  }
  return {};
}

void MakeLamp(const fs::path& folder, const Lamp& lamp) {
  const Tile tile = TileOf(lamp.mood);
  Canvas canvas(65, 42, Ink(palette::kWindow));
  canvas.Painter().setPen(QPen(Ink(tile.rim), 1));
  canvas.Painter().setBrush(Ink(tile.ground));
  canvas.Painter().drawRoundedRect(QRectF(1.5, 1.5, 62, 39), 7, 7);
  lamp.sign(Sketch(canvas.Painter(), {17, 5.5, 31, 31},
                   {Ink(tile.line), Ink(tile.mark), Ink(tile.ground)}));
  canvas.Save(folder / (std::string(lamp.name) + ".jpg"));
}

// ---- Numbered sets: one sign after the other, all of one size.

struct Item {
  Pictogram sign;
  platform::Color mark;
};

struct Set {
  const char* prefix;  ///< of the names, which end in numbers from 1
  int width;
  int height;
  double margin;  ///< free on the narrower sides, in pixels
  platform::Color ground;
  platform::Color line;
};

constexpr platform::Color kInk{52, 64, 78};  ///< on white, where the palette's light tones vanish
constexpr platform::Color kGoodInk{24, 140, 66};
constexpr platform::Color kActiveInk{0, 124, 150};
constexpr platform::Color kWarningInk{206, 116, 0};
constexpr platform::Color kAlarmInk{206, 32, 28};

constexpr Set kMenuSet{"menupic", 120, 115, 17, palette::kPanel, palette::kText};
constexpr Item kMenu[] = {
    {Language, palette::kAccent},     {Settings, palette::kAccent},
    {Calendar, palette::kAccent},     {EventList, palette::kAccent},
    {History, palette::kAccent},      {Oscilloscope, palette::kAccent},
    {ShortMessage, palette::kAccent}, {Mail, palette::kAccent},
    {Table, palette::kAccent},        {Information, palette::kAccent},
};

constexpr Set kEventSet{"EventPic", 16, 16, 0.5, kWhite, kInk};
constexpr Set kScheduleSet{"SchedulePic", 24, 24, 1, kWhite, kInk};

platform::Color InkOnWhite(Tone tone) {
  switch (tone) {
    case Tone::Plain:
      return kInk;
    case Tone::Good:
      return kGoodInk;
    case Tone::Active:
      return kActiveInk;
    case Tone::Warning:
      return kWarningInk;
    case Tone::Alarm:
      return kAlarmInk;
  }
  return kInk;
}

std::vector<Item> OnWhite(std::span<const Sign> signs) {
  std::vector<Item> items;
  for (const Sign& sign : signs) items.push_back({sign.pictogram, InkOnWhite(sign.tone)});
  return items;
}

void MakeItem(const fs::path& path, const Set& set, const Item& item) {
  Canvas canvas(set.width, set.height, Ink(set.ground));
  const double edge = std::min(set.width, set.height) - 2 * set.margin;
  const QRectF square((set.width - edge) / 2, (set.height - edge) / 2, edge, edge);
  item.sign(Sketch(canvas.Painter(), square, {Ink(set.line), Ink(item.mark), Ink(set.ground)}));
  canvas.Save(path);
}

void MakeSet(const fs::path& folder, const Set& set, std::span<const Item> items) {
  for (size_t index = 0; index < items.size(); ++index) {
    MakeItem(folder / (set.prefix + std::to_string(index + 1) + ".jpg"), set, items[index]);
  }
}

}  // namespace

void MakeStatePictures(const fs::path& folder) {
  for (const Lamp& lamp : kLamps) MakeLamp(folder, lamp);
  MakeSet(folder, kMenuSet, kMenu);
  MakeSet(folder, kEventSet, OnWhite(kEventSigns));
  MakeSet(folder, kScheduleSet, OnWhite(kActionSigns));
}

}  // namespace varek::pictures
