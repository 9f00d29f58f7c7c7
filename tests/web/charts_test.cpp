// The charts, drawn from real tables and read back from the files that a browser would fetch.

#include "web/pages/chart_pages.h"

#include <filesystem>

#include "core/data_center.h"
#include "platform/errors/runtime_error.h"
#include "platform/picture/surface.h"
#include "platform/system/paths.h"
#include "records/files/databases.h"
#include "support/monitor_fixture.h"
#include "texts/language.h"

namespace varek {
namespace {

using platform::Color;
using platform::Surface;

constexpr LastHourChart kBoth[] = {LastHourChart::Battery, LastHourChart::Temperature};
constexpr Color kWhite{255, 255, 255}, kGrid{30, 30, 80}, kBattery{255, 0, 64};

struct Row {
  const char* time;
  double values[6];  // input, output, load, frequency, battery, temperature
};

Row BatteryRow(const char* time, double battery) { return {time, {0, 0, 0, 0, battery, 0}}; }

class ChartsTest : public test::MonitorTest {
 protected:
  ChartsTest() {
    std::filesystem::create_directory(Folder() + "/httpEnglish");
    SetLanguageIndex(0);
    Loadlanguage(0);
    DataCenter.settings.UseCelsius = kSet;
  }

  /// Opens the databases at `now` and fills the table of that day.
  void Day(const platform::DateTime& now, const std::vector<Row>& rows) {
    clock.SetNow(now);
    ASSERT_TRUE(OpenDatabases());
    for (const Row& row : rows) {
      Records.samples->AddNew();
      Records.samples->Set(0, row.time);
      for (int i = 0; i < 6; ++i) Records.samples->Set(i + 1, row.values[i]);
      Records.samples->Update();
    }
  }

  std::string File(const std::string& name) const { return Folder() + "/httpEnglish/" + name; }
  /// A pixel of the plot area.
  Color Plot(const std::string& name, int x, int y) const {
    return Surface(File(name)).Pixel(20 + x, 5 + y);
  }

  PageValues values;
};

TEST_F(ChartsTest, AnEmptyHourShowsGridFrameAndLabels) {
  Day({2026, 3, 10, 12, 30, 15}, {});
  makepic(LastHourChart::Battery, values);
  EXPECT_EQ(values.ChartStartTime, "11:30:15");
  EXPECT_EQ(values.ChartEndTime, "12:30:15");
  Surface labels(220, 145);
  labels.Clear(kWhite);
  labels.SetTextSize(9);
  for (int value = 0; value <= 20; value += 2)
    labels.Text(0, 120 - value * 6, std::to_string(value));
  int x = 7;
  for (const char* time : {"11:30", "11:40", "11:50", "12:00", "12:10", "12:20", "12:30"}) {
    labels.Text(x, 125, time);
    x += 30;
  }
  const Surface picture(File("bettery.bmp"));
  for (int i = 0; i < 220 * 145; ++i) {
    const int column = i % 220, line = i / 220;
    const int right = column - 20, down = line - 5;
    const bool inPlot = right >= 0 && right < 180 && down >= 0 && down < 120;
    const bool lined = right % 30 == 0 || down % 12 == 0 || down == 118 || right == 178;
    const Color expected = inPlot ? (lined ? kGrid : kWhite) : labels.Pixel(column, line);
    ASSERT_EQ(picture.Pixel(column, line), expected) << column << "," << line;
  }
}

TEST_F(ChartsTest, TenMissingSecondsAreBridgedElevenAreNot) {
  // On a scale of 30 a charge of 10 lies at 80; 1000 seconds at 50.
  Day({2026, 3, 10, 12, 0, 0},
      {BatteryRow("11:16:40", 10), BatteryRow("11:16:51", 10), BatteryRow("11:33:20", 10),
       BatteryRow("11:33:32", 10), BatteryRow("11:50:00", 0), BatteryRow("11:50:01", 10)});
  makepic(LastHourChart::Battery, values);
  for (int y = 78; y <= 81; ++y) {
    EXPECT_EQ(Plot("bettery.bmp", 50, y) == kBattery, y == 79 || y == 80);
    EXPECT_NE(Plot("bettery.bmp", 100, y), kBattery);
  }
  for (int y = 80; y < 118; ++y) EXPECT_EQ(Plot("bettery.bmp", 150, y), kBattery) << y;
}

TEST_F(ChartsTest, TheFirstHourOfADayBeginsAtMidnight) {
  Day({2026, 3, 9, 23, 59, 59}, {BatteryRow("23:40:00", 90)});
  Day({2026, 3, 10, 0, 30, 0}, {BatteryRow("00:10:01", 10), BatteryRow("00:10:02", 10)});
  makepic(LastHourChart::Battery, values);
  EXPECT_EQ(values.ChartStartTime, "00:00:01");
  EXPECT_EQ(values.ChartEndTime, "00:30:00");
  EXPECT_EQ(Plot("bettery.bmp", 30, 80), kBattery);  // 90 % would have made the scale 110
}

TEST_F(ChartsTest, TheTemperatureFollowsUnitAndSensor) {
  Day({2026, 3, 10, 12, 0, 0},
      {{"11:10:00", {0, 0, 0, 0, 0, 30}}, {"11:10:01", {0, 0, 0, 0, 0, 30}}});
  DataCenter.HasTemperature = kSet;
  makepic(LastHourChart::Temperature, values);
  EXPECT_EQ(Plot("temperature.bmp", 30, 48), (Color{255, 12, 12}));  // 30 of 50
  DataCenter.settings.UseCelsius = kClear;
  makepic(LastHourChart::Temperature, values);
  EXPECT_EQ(Plot("temperature.bmp", 30, 22), (Color{255, 12, 12}));  // 86 of 106
  DataCenter.HasTemperature = kClear;
  makepic(LastHourChart::Temperature, values);
  EXPECT_NE(Plot("temperature.bmp", 80, 15), kWhite);
}

TEST_F(ChartsTest, EveryPageReadsTheHourAnew) {
  makepic(LastHourChart::Battery, values);  // no table yet
  EXPECT_EQ(values.ChartStartTime, "11:00:00");
  EXPECT_FALSE(platform::IsFile(File("bettery.bmp")));
  Day({2026, 3, 10, 12, 0, 0}, {});
  DataCenter.HasTemperature = kSet;
  for (const auto chart : kBoth) makepic(chart, values);
  Day({2026, 3, 10, 12, 0, 3},
      {{"12:00:01", {0, 0, 0, 0, 0, 40}}, {"12:00:02", {0, 0, 0, 0, 0, 40}}});
  for (const auto chart : kBoth) makepic(chart, values);
  EXPECT_EQ(Plot("temperature.bmp", 179, 40), (Color{255, 12, 12}));
}

constexpr char kHour[] = "2026%2F3%2F10+";

TEST_F(ChartsTest, AChosenHourShowsTheChosenMeasures) {
  Day({2026, 3, 10, 23, 0, 0},
      {{"19:10:02", {30, 40, 150, 50, 60, 70}}, {"19:10:03", {30, 40, 150, 50, 60, 70}}});
  const Color colors[] = {{0, 0, 255}, {0, 255, 0},   {255, 0, 0},
                          {0, 0, 0},   {0, 255, 255}, {255, 0, 255}};
  const int measures[] = {30, 40, 150, 50, 60, 70};
  // Each alone and with all the others, which make the scale drawn or not. 601 seconds lie at 60.
  for (const bool sensors : {true, false}) {
    DataCenter.HasLoad = ToFlag(sensors);
    DataCenter.HasTemperature = ToFlag(sensors);
    for (int bit = 0; bit < 6; ++bit) {
      for (const int mask : {1 << bit, 63}) {
        ChartRequest(kHour + std::string("19+") + std::to_string(mask) + "&B1=x", values);
        const double scale = mask == 63 ? 170 : measures[bit] + 20;
        const int y = static_cast<int>(250 - measures[bit] * 250 / scale);
        const bool drawn = sensors || (bit != 2 && bit != 5);
        EXPECT_EQ(Plot("chart.bmp", 60, y) == colors[bit], drawn) << bit << " " << mask;
      }
    }
  }
  ChartRequest(kHour + std::string("19+0"), values);
  for (const auto& [x, y] : {std::pair(29, 10), {359, 10}, {10, 24}, {10, 249}})
    EXPECT_EQ(Plot("chart.bmp", x, y), kGrid) << x << "," << y;
  EXPECT_EQ(Plot("chart.bmp", 58, 10), kWhite);
  EXPECT_EQ(values.ChartEndTime, "20:00:01");
}

TEST_F(ChartsTest, AnHourWithoutSamplesOrWithWrongOnesLeavesTheFile) {
  Day({2026, 3, 10, 23, 0, 0}, {BatteryRow("10:00:01", 10), BatteryRow("11:00:01", 10)});
  for (const char* value : {"", "2026%2F3%2F10", "2026%2F3%2F10+12"}) ChartRequest(value, values);
  ChartRequest(kHour + std::string("10+16"), values);  // both ends of the hour are left out
  EXPECT_FALSE(platform::IsFile(File("chart.bmp")));
  Day({2026, 3, 10, 23, 0, 0}, {BatteryRow("2026-03-10 05:00:00", 10)});
  EXPECT_THROW(ChartRequest(kHour + std::string("19+16"), values), platform::RuntimeError);
  EXPECT_FALSE(platform::IsFile(File("chart.bmp")));
  Day({2026, 3, 10, 23, 59, 59}, {BatteryRow("23:59:58", 10), BatteryRow("23:59:59", 90)});
  ChartRequest(kHour + std::string("23+16"), values);
  EXPECT_EQ(values.ChartEndTime, "23:59:59");

  // A day without a table says so, in a bitmap of the newer header.
  ChartRequest("2026%2F3%2F9+12+63", values);
  const std::string bytes = platform::ReadWholeFile(File("chart.bmp"));
  EXPECT_EQ(bytes.substr(10, 17),
            std::string("\x36\0\0\0\x28\0\0\0\x81\x01\0\0\x0E\x01\0\0\x01", 17));
}

}  // namespace
}  // namespace varek
