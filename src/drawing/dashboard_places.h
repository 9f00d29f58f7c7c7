// Where everything stands on the dashboard: the one table from which the window lays itself out,
// needles and readings find their places, and the dial panels are drawn at build time. So a needle
// cannot drift from its scale, nor a reading from its plate.
#pragma once

#include <array>

namespace varek {

/// In the design units of the section in which it stands.
struct Spot {
  int x;
  int y;
};
struct Area {
  int left;
  int top;
  int width;
  int height;
};

// ---- The window: its design is a client area of this size.

constexpr int kClientWidth = 764;
constexpr int kClientHeight = 507;

constexpr Spot kTabsCorner{100, 65};
constexpr Area kMessageList{430, 65, 326, 24};
constexpr Area kInstrumentView{0, 0, 664, 404};  ///< within its tab
constexpr Area kTopLamp{16, 96, 65, 41};
constexpr int kLampPitch = 56;  ///< from one lamp down to the next

// ---- The dial panel: its design are the pixels of size class 800.

/// One of the three sizes in which the dial panel is drawn.
struct SizeClass {
  const char* suffix;  ///< of the picture files
  int designWidth;     ///< pixels of the panel's picture
  int designHeight;
  float sizeFactor;  ///< pixels for a design unit
  int barIndex;      ///< which bar pictures
  int lineWidth;     ///< with which a frame begins
};

inline constexpr std::array<SizeClass, 3> kSizeClasses{{
    {"640", 531, 340, 0.8F, 1, 1},
    {"800", 664, 425, 1.0F, 0, 3},
    {"1024", 850, 540, 1.28F, 2, 6},
}};

/// Sizes in pixels of the filled bar pictures, by SizeClass::barIndex.
struct BarSize {
  int width;
  int height;
};
inline constexpr std::array<BarSize, 3> kBarSizes{{{33, 289}, {31, 231}, {49, 377}}};

/// Indexes into the needle positions; fixed, and used by nothing else.
enum Instrument : int {
  kInputDial,
  kOutputDial,
  kLoadBar,
  kFrequencyDial,
  kBatteryBar,
  kTemperatureDial,
  kInstrumentCount
};

/// Which needle a dial has: they differ in damping and tail.
enum class Needle { Main, Left, Right };

struct Dial {
  Instrument index;
  Needle needle;
  float fullScale;
  float startAngle;  ///< degrees on the screen: x to the right, y down
  float endAngle;
  Spot centre;  ///< without kDialOffset
  int length;
  Area plate;    ///< behind the texts
  Spot value;    ///< left upper corner
  Spot caption;  ///< middle of its upper edge
};

/// Added to every dial's centre.
constexpr Spot kDialOffset{2, 5};

/// The input's value stands on the face; its plate lies over the rim, behind the caption alone.
inline constexpr std::array<Dial, 4> kDials{{
    {.index = kInputDial,
     .needle = Needle::Main,
     .fullScale = 300,
     .startAngle = 120,
     .endAngle = 420,
     .centre = {260, 250},
     .length = 100,
     .plate = {219, 346, 92, 18},
     .value = {248, 327},
     .caption = {265, 346}},
    {.index = kOutputDial,
     .needle = Needle::Left,
     .fullScale = 260,
     .startAngle = 90,
     .endAngle = 270,
     .centre = {101, 246},
     .length = 60,
     .plate = {74, 385, 64, 20},
     .value = {85, 387},
     .caption = {100, 405}},
    {.index = kFrequencyDial,
     .needle = Needle::Right,
     .fullScale = 100,
     .startAngle = 90,
     .endAngle = 270,
     .centre = {415, 255},
     .length = 60,
     .plate = {389, 387, 64, 20},
     .value = {400, 389},
     .caption = {410, 405}},
    {.index = kTemperatureDial,
     .needle = Needle::Main,
     .fullScale = 150,
     .startAngle = 120,
     .endAngle = 420,
     .centre = {374, 62},
     .length = 30,
     .plate = {431, 57, 80, 37},
     .value = {465, 60},
     .caption = {472, 75}},
}};

struct Bar {
  Instrument index;
  float fullScale;
  Spot frame;    ///< left upper corner
  Area plate;    ///< behind the value
  Spot value;    ///< left upper corner
  Spot caption;  ///< middle of its upper edge
  const char* topNumeral;
  Spot topNumeralPlace;  ///< middle of its upper edge
};

inline constexpr Bar kBatteryWithLoad{.index = kBatteryBar,
                                      .fullScale = 100,
                                      .frame = {605, 28},
                                      .plate = {609, 350, 48, 19},
                                      .value = {615, 353},
                                      .caption = {628, 370},
                                      .topNumeral = "100%",
                                      .topNumeralPlace = {624, 26}};
inline constexpr Bar kLoad{.index = kLoadBar,
                           .fullScale = 120,
                           .frame = {537, 28},
                           .plate = {540, 350, 48, 19},
                           .value = {546, 352},
                           .caption = {555, 370},
                           .topNumeral = "120%",
                           .topNumeralPlace = {555, 26}};
/// Stands further left, on panels without a load.
inline constexpr Bar kBatteryAlone{.index = kBatteryBar,
                                   .fullScale = 100,
                                   .frame = {558, 28},
                                   .plate = {560, 350, 48, 19},
                                   .value = {570, 353},
                                   .caption = {581, 370},
                                   .topNumeral = "100%",
                                   .topNumeralPlace = {577, 26}};

/// The plates under the bars, with all that belongs to them.
constexpr Area kTwoBarsPlate{514, 14, 148, 378};
constexpr Area kBatteryAlonePlate{531, 14, 104, 378};

}  // namespace varek
