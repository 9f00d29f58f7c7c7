// The scales printed on the dial panels: which readings carry ticks and numerals, and where these
// stand. They are placed by the arithmetic of the needles, with the same rounding of the centres,
// so that a needle points exactly at the tick of its reading.
#pragma once

#include <array>

#include "drawing/instruments.h"

namespace varek {

/// The face of a dial. Steps are in units of the reading, radii in design units.
struct DialScale {
  Instrument dial;
  const char* unit;  ///< printed on the face; empty where the reading tells it
  int minorStep;
  int majorStep;  ///< a multiple of minorStep
  int numeralStep;
  double rimRadius;   ///< outer edge of the bezel
  double faceRadius;  ///< inner edge of the bezel
  double tickEnd;
  double minorStart;
  double majorStart;
  double numeralRadius;
  double numeralSize;
};

extern const std::array<DialScale, 4> kDialScales;

/// The scale beside a level bar, in percent.
struct BarScale {
  const Bar& bar;
  int minorStep;
  int majorStep;
  int lastNumeral;  ///< at major ticks up to here; the topmost one is the program's
  int alarmFrom;
};

extern const BarScale kLoadScale;
extern const BarScale kBatteryWithLoadScale;
extern const BarScale kBatteryAloneScale;

/// Every reading of the dial that carries a tick is a multiple of minorStep up to this one.
int FullScale(const DialScale& scale);

struct Tick {
  Point start;  ///< towards the centre
  Point end;
};

/// The tick of `value` in pixels for `factor` pixels to the design unit, a major one where `value`
/// is a multiple of majorStep.
Tick DialTick(const DialScale& scale, int value, double factor);

/// The middle of the numeral of `value`, in pixels.
Point NumeralPlace(const DialScale& scale, int value, double factor);

/// Left upper corner and size of the filled bar on the panel, in pixels.
platform::Rect BarPlace(const Bar& bar, const SizeClass& sizeClass);

/// The topmost pixel row that the bar fills at `percent`; the row below the bar for 0.
int BarTickRow(const Bar& bar, double percent, const SizeClass& sizeClass);

}  // namespace varek
