// The charts of the web console as files of the language folder, where browsers fetch them.
#pragma once

#include <string>

#include "web/charts/charts.h"
#include "web/pages/page_values.h"

namespace varek {

/// Draws the last hour, the battery to "bettery.bmp" or the temperature to "temperature.bmp", and
/// leaves its times in `values`. Without a table for today the file stays as it was.
void makepic(LastHourChart chart, PageValues& values);

/// A chart of a chosen hour, to "chart.bmp", its times to `values`. `value` is what stands behind
/// "T1=" in the request; a value without its separators does nothing. An hour without samples
/// leaves the file as it is.
void ChartRequest(const std::string& value, PageValues& values);

}  // namespace varek
