// The charts of the web console: battery and temperature of the last hour for the status page, and
// a chosen hour with any of the six measures. They are drawn off-screen and saved as bitmaps in the
// folder of the present language.
#pragma once

#include <string>

namespace varek {

/// Draws the last hour: 1 the battery to "bettery.bmp", 2 the temperature to "temperature.bmp".
/// Without a table for today the files stay as they were. Sets ChartStartTime and ChartEndTime.
void makepic(int kind);

/// A chart of a chosen hour, to "chart.bmp". `value` is what stands behind "T1=" in the request; a
/// value without its separators does nothing.
void ChartRequest(const std::string& value);

}  // namespace varek
