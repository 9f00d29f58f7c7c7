#include "web/pages/chart_pages.h"

#include "records/files/databases.h"
#include "web/pages/page_files.h"
#include "web/pages/request_values.h"

namespace varek {

namespace {

constexpr char kBatteryFile[] = "bettery.bmp";  // The pages fetch it by this name.
constexpr char kTemperatureFile[] = "temperature.bmp";
constexpr char kHourFile[] = "chart.bmp";

void ShowTimes(const SampleWindow& window, PageValues& values) {
  values.ChartStartTime = window.start;
  values.ChartEndTime = window.end;
}

void ExportPicPage(const SampleWindow& window, const MeasuresShown& shown, PageValues& values) {
  ShowTimes(window, values);
  if (const auto chart = DrawHour(window, shown)) chart->SaveBmp(WebPath(kHourFile));
}

}  // namespace

void makepic(LastHourChart chart, PageValues& values) {
  const SampleWindow window = LastHour();
  ShowTimes(window, values);
  if (!TableExists(window.table)) return;
  const char* file = chart == LastHourChart::Battery ? kBatteryFile : kTemperatureFile;
  DrawLastHour(chart, window).SaveBmp(WebPath(file));
}

void ChartRequest(const std::string& value, PageValues& values) {
  const auto asked = ReadHourValue(value);
  if (!asked) return;
  const auto mask = BehindPlus(asked->more);
  if (!mask) return;
  const SampleWindow window = ChosenHour(asked->year, asked->month, asked->day, asked->hour);
  if (!TableExists(window.table)) return NoHourPicture().SaveBmp(WebPath(kHourFile));
  ExportPicPage(window, MeasuresShown(static_cast<unsigned>(WholeNumber(*mask))), values);
}

}  // namespace varek
