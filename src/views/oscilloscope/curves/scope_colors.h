// The oscilloscope's colours. A tip is found by reading back the colour under the pointer, so no
// two things in the plot share one, and nothing that has a tip is ever blended.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/picture/surface.h"

namespace varek {

constexpr platform::Color kScopeBack{206, 211, 216};
constexpr platform::Color kGridColor{130, 130, 130};
/// Not quite black, which is a curve's.
constexpr platform::Color kGridTextColor{5, 5, 5};
constexpr platform::Color kBoxColor{0, 0, 0};

/// 0 to 5, in the order of the curves.
constexpr platform::Color CurveColor[] = {{0, 0, 255}, {0, 255, 0},   {255, 0, 0},
                                          {0, 0, 0},   {0, 255, 255}, {255, 0, 255}};

/// By event type less one. Alike to the eye on purpose, and still different on a display of 16
/// bits.
constexpr platform::Color EventColor[] = {
    {255, 255, 0},  {255, 255, 8},  {255, 255, 16}, {255, 255, 24}, {255, 255, 33}, {255, 255, 41},
    {255, 255, 49}, {255, 255, 57}, {255, 255, 66}, {255, 255, 74}, {255, 255, 82}, {255, 255, 90}};

/// Colour codes: 1 to 6 for the curves 0 to 5, 10 to 21 for the event types 1 to 12.
constexpr int kNoCode = 0;
constexpr int kFirstEventCode = 10;
constexpr bool IsEventCode(int code) { return code >= kFirstEventCode; }

/// The code of a colour, or kNoCode.
int CodeOfColor(platform::Color color);
/// REQUIRES a code other than kNoCode.
platform::Color ColorOfCode(int code);
/// The code under a point of the plot, or of the nearest within three pixels below and above it.
int CodeAt(const platform::Surface& plot, int x, int y);

}  // namespace varek
