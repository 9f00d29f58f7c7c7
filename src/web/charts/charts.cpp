#include "web/charts/charts.h"

#include <array>
#include <bitset>
#include <optional>
#include <utility>

#include "core/data_center.h"
#include "records/databases.h"
#include "web/charts/chart_picture.h"
#include "web/charts/chart_samples.h"
#include "web/pages/page_files.h"
#include "web/pages/request_values.h"

namespace varek {

namespace {

constexpr char kBatteryFile[] = "bettery.bmp";  // The pages fetch it by this name.
constexpr char kTemperatureFile[] = "temperature.bmp";
constexpr char kHourFile[] = "chart.bmp";

constexpr int kBatteryKind = 1;
constexpr int kTemperatureKind = 2;

constexpr int16_t kLeastScale = 20;

/// By column less one.
using SeriesShown = std::bitset<kMeasureCount>;
constexpr std::array<platform::Color, kMeasureCount> kCurveColors{
    {{0, 0, 255}, {0, 255, 0}, {255, 0, 0}, {0, 0, 0}, {0, 255, 255}, {255, 0, 255}}};

void ShowTimes(const SampleWindow& window) {
  ChartStartTime = window.start;
  ChartEndTime = window.end;
}

struct Reading {
  SampleWindow window;
  HourSamples samples;
};

/// The last hour, read once for the two charts of a page, which are drawn one right behind the
/// other: reading is most of what they cost. Whatever lies in the window was written before its
/// last second, so that the second chart misses nothing. A reading is handed on once at most.
HourSamples ReadLastHour(int kind, const SampleWindow& window) {
  static std::optional<Reading> handedOn;
  std::optional<Reading> former = std::exchange(handedOn, std::nullopt);
  if (kind == kTemperatureKind && former && former->window == window) {
    return std::move(former->samples);
  }
  HourSamples samples = ReadSamples(window);
  if (kind == kBatteryKind) handedOn = Reading{window, samples};
  return samples;
}

void DrawSmallChart(const ChartSeries& series, platform::Color color, const TimeOfDay& start,
                    const char* file) {
  Chart chart(kSmallChart, ScaleTop(series, kLeastScale));
  chart.Curve(series, color);
  chart.Finish(start).SaveBmp(WebPath(file));
}

bool IsDrawn(int column, const SeriesShown& shown) {
  return IsMeasured(column) && shown[column - 1U];
}

/// The measures that are chosen make the scale, drawn or not.
int16_t HourScale(const HourSamples& samples, const SeriesShown& shown) {
  int16_t scale = kLeastScale;
  for (size_t i = 0; i < shown.size(); ++i) {
    if (shown[i]) scale = ScaleTop(samples.series[i], scale);
  }
  return scale;
}

/// An hour without samples leaves the file as it is.
void ExportPicPage(const SampleWindow& window, const SeriesShown& shown) {
  ShowTimes(window);
  const HourSamples samples = ReadSamples(window);
  if (samples.rows == 0) return;
  Chart chart(kLargeChart, HourScale(samples, shown));
  for (int column = kInputColumn; column <= kTemperatureColumn; ++column) {
    const size_t i = column - 1U;
    if (IsDrawn(column, shown)) chart.Curve(samples.series[i], kCurveColors[i]);
  }
  chart.Finish(SplitTime(window.start)).SaveBmp(WebPath(kHourFile));
}

}  // namespace

void makepic(int kind) {
  const SampleWindow window = LastHour();
  ShowTimes(window);
  if (!TableExists(window.table)) return;
  const HourSamples samples = ReadLastHour(kind, window);
  const TimeOfDay start = SplitTime(window.start);
  if (kind == kBatteryKind) {
    DrawSmallChart(samples.Of(kBatteryColumn), {255, 0, 64}, start, kBatteryFile);
  } else if (DataCenter.HasTemperature) {
    DrawSmallChart(samples.Of(kTemperatureColumn), {255, 12, 12}, start, kTemperatureFile);
  } else {
    NoDataPicture(kSmallChart).SaveBmp(WebPath(kTemperatureFile));
  }
}

void ChartRequest(const std::string& value) {
  const auto asked = ReadDayValue(value);
  if (!asked || !asked->more) return;
  const auto mask = BehindPlus(*asked->more);
  if (!mask) return;
  const int hour = WholeNumber(asked->more->substr(0, 2));
  const SampleWindow window = ChosenHour(asked->year, asked->month, asked->day, hour);
  if (!TableExists(window.table)) return NoDataPicture(kLargeChart).SaveBmp(WebPath(kHourFile));
  ExportPicPage(window, SeriesShown(static_cast<unsigned>(WholeNumber(*mask))));
}

}  // namespace varek
