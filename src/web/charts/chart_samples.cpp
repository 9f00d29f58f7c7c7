#include "web/charts/chart_samples.h"

#include <algorithm>

#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "records/files/databases.h"

namespace varek {

namespace {

using platform::Database;
using platform::Recordset;
using platform::ValueNumber;
using platform::ValueText;

constexpr int kLastHour = 23;
constexpr double kHeadroom = 20;

int NumberAt(const std::string& text, size_t first) {
  return static_cast<int>(platform::LenientNumber(platform::Middle(text, first)));
}

/// Seconds from the start of the hour.
size_t IndexOf(const std::string& time, const TimeOfDay& start) {
  const TimeOfDay row = SplitTime(time);
  const int index = (row.hour - start.hour) * 3600 + (row.minute - start.minute) * 60 +
                    (row.second - start.second);
  if (index >= 0 && index <= kLastSecond) return static_cast<size_t>(index);
  throw platform::RuntimeError(platform::errors::kSubscript, "sample outside the hour: " + time);
}

void StoreRow(Recordset& rows, const TimeOfDay& start, HourSamples& samples) {
  const size_t index = IndexOf(ValueText(rows.Get(kTimeColumn)), start);
  for (int column = kInputColumn; column <= kTemperatureColumn; ++column) {
    samples.series[column - 1U][index] = ShownValue(column, ValueNumber(rows.Get(column)));
  }
}

}  // namespace

SampleWindow LastHour() {
  const platform::DateTime now = platform::Now();
  const std::string end = platform::FormatTime(now);
  const std::string start =
      now.hour == 0 ? "00:00:01" : std::to_string(now.hour - 1) + end.substr(2);
  return {platform::FormatDayName(now), start, end};
}

SampleWindow ChosenHour(int year, int month, int day, int hour) {
  const std::string end = hour == kLastHour ? "23:59:59" : std::to_string(hour + 1) + ":00:01";
  platform::DateTime date;
  date.year = year;
  date.month = month;
  date.day = day;
  return {platform::FormatDayName(date), std::to_string(hour) + ":00:01", end};
}

TimeOfDay SplitTime(const std::string& time) {
  const size_t hourEnd = time.find(':') + 1;
  const size_t minuteEnd = time.find(':', hourEnd) + 1;
  return {NumberAt(time, 1), NumberAt(time, hourEnd + 1), NumberAt(time, minuteEnd + 1)};
}

std::unique_ptr<Recordset> OpenWindow(const SampleWindow& window) {
  Database database(platform::ProgramPath(kDataFile), platform::Access::ReadOnly);
  database.BeginReading();
  const std::string column = TimeColumnName(database, window.table);
  return database.OpenRecordset("Select *  From  [" + window.table + "] Where  " + column + "> #" +
                                window.start + "# And " + column + "< #" + window.end + "#");
}

HourSamples ReadSamples(const SampleWindow& window) {
  HourSamples samples;
  for (ChartSeries& series : samples.series) series.fill(kNoSample);
  const TimeOfDay start = SplitTime(window.start);
  const auto rows = OpenWindow(window);
  samples.rows = rows->RecordCount();
  for (; !rows->Eof(); rows->MoveNext()) StoreRow(*rows, start, samples);
  return samples;
}

int16_t ScaleTop(const ChartSeries& series, int16_t least) {
  const double needed = *std::ranges::max_element(series) + kHeadroom;
  return needed > least ? platform::RoundToInt16(needed) : least;
}

}  // namespace varek
