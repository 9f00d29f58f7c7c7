#include "web/charts/charts.h"

#include <array>
#include <utility>

#include "core/data_center.h"
#include "web/charts/chart_picture.h"

namespace varek {

namespace {

using platform::Color;
using platform::Surface;

constexpr Color kBatteryColor{255, 0, 64};
constexpr Color kTemperatureColor{255, 12, 12};
/// By column less one.
constexpr std::array<Color, kMeasureCount> kCurveColors{
    {{0, 0, 255}, {0, 255, 0}, {255, 0, 0}, {0, 0, 0}, {0, 255, 255}, {255, 0, 255}}};

constexpr int16_t kLeastScale = 20;

struct Reading {
  SampleWindow window;
  HourSamples samples;
};

/// The last hour, read once for the two charts of a page, which are drawn one right behind the
/// other: reading is most of what they cost. Whatever lies in the window was written before its
/// last second, so that the second chart misses nothing. A reading is handed on once at most.
HourSamples ReadLastHour(LastHourChart chart, const SampleWindow& window) {
  static std::optional<Reading> handedOn;
  std::optional<Reading> former = std::exchange(handedOn, std::nullopt);
  if (chart == LastHourChart::Temperature && former && former->window == window) {
    return former->samples;
  }
  HourSamples samples = ReadSamples(window);
  if (chart == LastHourChart::Battery) handedOn = Reading{window, samples};
  return samples;
}

Surface DrawSmallChart(const ChartSeries& series, Color color, const TimeOfDay& start) {
  Chart chart(kSmallChart, ScaleTop(series, kLeastScale));
  chart.Curve(series, color);
  return chart.Finish(start);
}

/// The measures that are chosen make the scale, drawn or not.
int16_t HourScale(const HourSamples& samples, const MeasuresShown& shown) {
  int16_t scale = kLeastScale;
  for (size_t i = 0; i < shown.size(); ++i) {
    if (shown[i]) scale = ScaleTop(samples.series[i], scale);
  }
  return scale;
}

}  // namespace

Surface DrawLastHour(LastHourChart chart, const SampleWindow& window) {
  const HourSamples samples = ReadLastHour(chart, window);
  const TimeOfDay start = SplitTime(window.start);
  if (chart == LastHourChart::Battery) {
    return DrawSmallChart(samples.Of(kBatteryColumn), kBatteryColor, start);
  }
  if (!DataCenter.HasTemperature) return NoDataPicture(kSmallChart);
  return DrawSmallChart(samples.Of(kTemperatureColumn), kTemperatureColor, start);
}

std::optional<Surface> DrawHour(const SampleWindow& window, const MeasuresShown& shown) {
  const HourSamples samples = ReadSamples(window);
  if (samples.rows == 0) return {};
  Chart chart(kLargeChart, HourScale(samples, shown));
  for (int column = kInputColumn; column <= kTemperatureColumn; ++column) {
    const size_t i = column - 1U;
    if (shown[i] && IsMeasured(column)) chart.Curve(samples.series[i], kCurveColors[i]);
  }
  return chart.Finish(SplitTime(window.start));
}

Surface NoHourPicture() { return NoDataPicture(kLargeChart); }

}  // namespace varek
