#include "views/oscilloscope/curves/scope_colors.h"

#include <algorithm>
#include <iterator>

namespace varek {

int CodeOfColor(platform::Color color) {
  const auto curve = std::find(std::begin(CurveColor), std::end(CurveColor), color);
  if (curve != std::end(CurveColor)) return static_cast<int>(curve - std::begin(CurveColor)) + 1;
  const auto event = std::find(std::begin(EventColor), std::end(EventColor), color);
  if (event == std::end(EventColor)) return kNoCode;
  return static_cast<int>(event - std::begin(EventColor)) + kFirstEventCode;
}

platform::Color ColorOfCode(int code) {
  return IsEventCode(code) ? EventColor[code - kFirstEventCode] : CurveColor[code - 1];
}

int CodeAt(const platform::Surface& plot, int x, int y) {
  // Outside, a surface reads black, which is a curve's colour.
  if (x < 0 || x >= plot.Width()) return kNoCode;
  for (const int away : {0, 1, -1, 2, -2, 3, -3}) {
    if (y + away < 0 || y + away >= plot.Height()) continue;
    if (const int code = CodeOfColor(plot.Pixel(x, y + away)); code != kNoCode) return code;
  }
  return kNoCode;
}

}  // namespace varek
