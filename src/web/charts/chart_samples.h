// The samples of one hour of a day, as the data page lists them and the charts draw them: which
// rows of the day's table these are, and their values second by second.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/storage/database.h"
#include "records/files/sample_columns.h"

namespace varek {

/// The rows of a day's table between two times of day, both left out: "9:05:03", the hour with or
/// without its leading zero.
struct SampleWindow {
  std::string table;  ///< "yyyymmdd"
  std::string start;
  std::string end;
  bool operator==(const SampleWindow&) const = default;
};

/// The last hour of today, in the first hour of the day what there is of it.
SampleWindow LastHour();

/// An hour of a day, from its second 1 to second 1 of the next; the last one ends at "23:59:59".
SampleWindow ChosenHour(int year, int month, int day, int hour);

struct TimeOfDay {
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// The parts of "hh:mm:ss".
TimeOfDay SplitTime(const std::string& time);

/// The rows of a window. Throws RuntimeError 3078 when the day has no table and 3075 when a time
/// does not exist.
std::unique_ptr<platform::Recordset> OpenWindow(const SampleWindow& window);

constexpr int kLastSecond = 3600;
constexpr float kNoSample = -999;

/// One measure, a value for each second of the hour.
using ChartSeries = std::array<float, kLastSecond + 1>;

struct HourSamples {
  int64_t rows = 0;
  std::array<ChartSeries, kMeasureCount> series;

  const ChartSeries& Of(SampleColumn column) const { return series[column - 1U]; }
};

/// Reads a window; temperatures come in the display unit. Throws as OpenWindow does, and 9 for a
/// row whose time lies outside the hour.
HourSamples ReadSamples(const SampleWindow& window);

/// What a vertical scale that begins at `least` must reach so that all of `series` stays 20 below
/// its top. Throws RuntimeError 6 beyond 16 bits.
int16_t ScaleTop(const ChartSeries& series, int16_t least);

}  // namespace varek
