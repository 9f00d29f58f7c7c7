// The oscilloscope: what it loads, draws and reads back, and its window.
#include "views/oscilloscope/oscilloscope.h"

#include <gtest/gtest.h>

#include "platform/time/clock.h"
#include "support/serial_line.h"
#include "support/windows.h"
#include "views/kit/calendar/month_calendar.h"
#include "views/oscilloscope/curve_panel.h"
#include "views/oscilloscope/curves/scope_colors.h"
#include "views/oscilloscope/scope_widgets.h"

namespace varek {
namespace {

using test::Nth, test::Saying;

constexpr char kToday[] = "20260310";

HourLines Lines(const std::vector<size_t>& hours) {
  HourLines lines{};
  for (const size_t hour : hours) lines.at(hour) = true;
  return lines;
}

/// A view of four hours starts with 6750 to 7650 seconds, 0 to 200.
TEST(ScopeViewTest, MovesWithinThePlane) {
  const auto band = [](ScopePoint a, ScopePoint b) {
    return [a, b](ScopeView& view) { view.SelectBand(a, b, 900, 400); };
  };
  const auto pan = [](ScopePoint by) {
    return [by](ScopeView& view) {
      view.Grab({500, 200});
      view.DragTo({500 + by.x / 2, 200}, 900, 400);
      view.DragTo({500 + by.x, 200 + by.y}, 900, 400);
    };
  };
  const auto jump = [](ScopePoint to) { return [to](ScopeView& view) { view.CentreOn(to); }; };
  const auto times = [](int count, void (ScopeView::*step)()) {
    return [count, step](ScopeView& view) {
      for (int i = 0; i < count; ++i) (view.*step)();
    };
  };
  const struct {
    const char* what;
    std::function<void(ScopeView&)> change;
    double left, right, bottom, top;
  } cases[] = {
      {"reset", &ScopeView::ResetView, 2000, 3000, 0, 200},
      {"all", &ScopeView::ShowAll, 0, 14400, 0, 500},
      {"in", &ScopeView::ZoomIn, 6975, 7425, 50, 150},
      // 900, 450, 225, 112.5, 56: there time stops; values go 200, 100, 50, 25, 12.5, 6, 3, 1.5.
      {"in to the end", times(12, &ScopeView::ZoomIn), 7172, 7228, 99.25, 100.75},
      {"out", &ScopeView::ZoomOut, 6300, 8100, 0, 300},
      {"out to the end", times(9, &ScopeView::ZoomOut), 0, 14400, 0, 500},
      {"pan", pan({90, 40}), 6660, 7560, 20, 220},
      {"pan too far", pan({9000, -400}), 0, 900, 0, 200},
      {"pan too far back", pan({-9000, 4000}), 13500, 14400, 300, 500},
      {"band", band({100, 100}, {200, 300}), 6850, 6950, 50, 150},
      {"band of a point", band({100, 100}, {100, 100}), 6820, 6880, 149, 151},
      {"band out of the picture", band({-7650, 300}, {-6750, 500}), 6720, 6780, 0, 50},
      {"band wider than the picture", band({9000, -900}, {-9000, 900}), 6750, 7650, 0, 200},
      {"jump", jump({80, 50}), 3150, 4050, 150, 350},
      {"jump to a corner", jump({319, 99}), 13500, 14400, 0, 200},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    ScopeView view;
    view.Recentre(4 * 3600);
    c.change(view);
    EXPECT_NEAR(view.Left(), c.left, 1);
    EXPECT_NEAR(view.Right() - view.Left(), c.right - c.left, 0.5);
    EXPECT_DOUBLE_EQ(view.Bottom(), c.bottom);
    EXPECT_DOUBLE_EQ(view.Top(), c.top);
  }
}

TEST(ScopeCurveTest, TenMissingSecondsAreBridgedElevenAreNot) {
  for (const size_t missing : {0U, 10U, 11U, 500U}) {
    Curve curve(missing + 4, kNoSample);
    curve[0] = curve[1] = 1;
    curve[missing + 2] = curve[missing + 3] = 2;
    const auto lines = CurveSegments(curve, 0, 10000, {0, 0, 2, 10, 100});
    const platform::Segment bridge{2, 90, 2.0 * static_cast<double>(missing + 2), 80};
    EXPECT_EQ(std::ranges::count(lines, bridge), missing <= 10) << missing;
  }
}

TEST(ScopeCurveTest, AWholeDayBecomesOneExtentAColumn) {
  Curve curve(86401, 50);
  curve[43210] = 90;
  curve[43220] = 10;
  const auto lines = CurveSegments(curve, 0, 86400, {0, 0, 0.01, 1, 100});
  EXPECT_LT(lines.size(), 870U);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), platform::Segment{432.5, 10, 432.5, 90}), 1);
  EXPECT_NEAR(lines.back().x2, 864, 1);
}

/// How many lines of the grid cross a row or a column of the plot, but for one on its first pixel.
int GridLines(const platform::Surface& plot, bool across) {
  const auto isLine = [&](int i) {
    return (across ? plot.Pixel(i, 50) : plot.Pixel(450, i)) == kGridColor;
  };
  int count = 0;
  for (int i = 1; i < (across ? plot.Width() : plot.Height()); ++i)
    count += isLine(i) && !isLine(i - 1);
  return count;
}

TEST(ScopeChartTest, TheGridFollowsTheSpan) {
  test::StartToolkit();
  const ScopeData none;
  ScopeView view;
  ScopeChart chart(none, view);
  chart.Resize(1000, 1000);
  const std::pair<int32_t, int> times[] = {{10, 0},   {11, 2},   {120, 23}, {121, 2},  {601, 2},
                                           {1800, 5}, {1900, 3}, {4000, 2}, {9000, 4}, {86400, 47}};
  for (const auto& [span, lines] : times) {
    view.Recentre(span);
    view.ShowAll();
    chart.DrawChart();
    EXPECT_EQ(GridLines(chart.Picture(), true), lines) << span;
  }
  view.Recentre(10);
  chart.Resize(1000, 500);
  for (const auto& [span, lines] : {std::pair{2, 19}, {3, 2}, {20, 19}, {21, 4}, {150, 5}}) {
    view.ShowAll();
    view.SelectBand({0, 0}, {1000, double(span)}, 1000, 500);
    chart.DrawChart();
    EXPECT_EQ(GridLines(chart.Picture(), false), lines) << span;
  }
}

/// Today has samples from 11:59:58 to 13:00:00, without 12:25:00 to 12:25:04; input 100, load 50,
/// frequency 20, battery 90, temperature 27. The mains fail at 12:30, the battery is low at
/// the last second.
class OscilloscopeTest : public test::WindowTest {
 protected:
  OscilloscopeTest() {
    DataCenter.settings.UseCelsius = DataCenter.HasLoad = DataCenter.HasTemperature = kSet;
    OpenDatabases();
    Records.data->BeginTransaction();
    for (int second = -2; second <= 3600; ++second)
      if (second < 1500 || second > 1504) AddRow(12 * 3600 + second);
    AddRow(23 * 3600 + 1);
    Records.data->CommitTransaction();
    for (const auto& [time, type] : {std::pair{"2026-03-10 23:59:59", 7},
                                     {"2026-03-10 12:30:00", 6},
                                     {"2026-03-10 13:00:00", 8},
                                     {"2026-03-10 13:00:01", 1},
                                     {"2026-03-09 12:30:00", 2}}) {
      Records.allevent->AddNew();
      Records.allevent->Set(0, time);
      Records.allevent->Set(1, int64_t{type});
      Records.allevent->Update();
    }
  }

  static void AddRow(int second) {
    platform::Recordset& rows = *Records.samples;
    rows.AddNew();
    rows.Set(0, platform::FormatTime({0, 0, 0, second / 3600, second / 60 % 60, second % 60}));
    const double values[] = {100, 250, 50, 20, 90, 27};
    for (int i = 0; i < 6; ++i) rows.Set(i + 1, values[i]);
    rows.Update();
  }

  static LoadResult Load(ScopeData& scope, const HourLines& lines, const char* day = kToday) {
    return scope.LoadDayData(*Records.data, *Records.event, day, ChosenHours(lines), [](int) {});
  }

  static Form3& Open() {
    ShowOscilloscope();
    test::Settle();
    return Oscilloscope().Get();
  }
  static SurfaceView& Plot() { return Nth<SurfaceView>(Oscilloscope().Get()); }
  /// The text of the range that is on screen; throws for any other.
  static QLabel& Range(const std::string& times) {
    return Saying<QLabel>(Oscilloscope().Get(), "2026/03/10\n" + times);
  }
};

TEST_F(OscilloscopeTest, LoadsWhatLiesBetweenTheHours) {
  ScopeData scope;
  ASSERT_EQ(Load(scope, Lines({12, 14})), LoadResult::Loaded);
  EXPECT_EQ(scope.Samples(0).size(), 7201U);
  for (const int32_t second : {-1, 0, 1, 1500, 3599, 3600, 7200, 7201})
    EXPECT_EQ(scope.SampleAt(0, second), second == 1 || second == 3599 ? 100 : kNoSample) << second;
  ASSERT_EQ(scope.EventList().size(), 2U);
  EXPECT_EQ(scope.EventList()[0].time, 1800);
  EXPECT_EQ(scope.EventList()[1].time, 3600);

  DataCenter.settings.UseCelsius = kClear;
  Load(scope, Lines({12}));
  EXPECT_FLOAT_EQ(scope.SampleAt(5, 1), 80.6F);

  EXPECT_EQ(scope.TimeText(3661, TimeStyle::HourMinuteSecond), "13:1:1");
  EXPECT_EQ(scope.TimeText(3661, TimeStyle::HourMinute), "13:1");
  ASSERT_EQ(Load(scope, Lines({23})), LoadResult::Loaded);
  ASSERT_EQ(scope.EventList().size(), 1U);
  EXPECT_EQ(scope.EventList()[0].time, 3599);

  EXPECT_EQ(Load(scope, Lines({15})), LoadResult::NoRows);
  EXPECT_EQ(Load(scope, Lines({12}), "20260308"), LoadResult::NoTable);
  EXPECT_EQ(scope.SampleAt(0, 1), kNoSample);
}

/// One second a pixel, half a unit a pixel.
TEST_F(OscilloscopeTest, TipsAreFoundByTheirColour) {
  ScopeData scope;
  Load(scope, Lines({12}));
  ScopeView view;
  view.Recentre(scope.TotalSeconds());
  ScopeChart chart(scope, view);
  chart.Resize(900, 400);
  chart.DrawChart();
  const struct {
    int x, y;
    const char* text;
  } cases[] = {
      {100, 200, "Input voltage\n100\n12:24:10"},
      {100, 204, "Input voltage\n100\n12:24:10"},
      {152, 200, "Input voltage\nNo sample at this time\n12:25:2"},
      {100, 300, "Load\n50\n12:24:10"},
      {100, 360, "Frequency\n20\n12:24:10"},
      {100, 346, "Temperature\n27\n12:24:10"},
      {450, 60, "Mains power failed\n2026-03-10 12:30:00"},
      {100, 100, ""},  // a line of the grid
      {-1, 200, ""},
  };
  for (const auto& c : cases) {
    const auto tip = TipAt(chart.Picture(), c.x, c.y, scope, view);
    EXPECT_EQ(tip ? tip->text : "", c.text) << c.x << ", " << c.y;
  }
}

TEST_F(OscilloscopeTest, OpensOnThePresentHourAndFollowsTheMouse) {
  Form3& form = Open();
  EXPECT_NO_THROW(Range("12:22:30 ~ 12:37:30"));

  const auto& tip = Nth<TipPlate>(form);
  for (const bool on : {true, false}) {
    test::Hover(Plot(), {30, Plot().height() / 2.0});
    EXPECT_EQ(tip.isVisible(), on);
    Nth<CurvePanel>(form).Box(0).click();
  }

  const double width = Plot().width();
  test::Drag(Plot(), {0, 100}, {width / 4, 100});
  EXPECT_NO_THROW(Range("12:18:45 ~ 12:33:45"));
  test::Drag(Plot(), {width / 4, 50}, {width / 4, 50}, Qt::RightButton);
  EXPECT_NO_THROW(Range("12:22:0 ~ 12:23:0"));
  test::Drag(Nth<SurfaceView>(form, 1), {10, 10}, {160, 50});
  EXPECT_NO_THROW(Range("12:29:30 ~ 12:30:30"));
}

TEST_F(OscilloscopeTest, TellsThatThereIsNoDataAndSurvivesItsOwnEnd) {
  Form3& form = Open();
  auto& hours = Nth<QListWidget>(form);
  hours.clearSelection();
  hours.item(15)->setSelected(true);
  test::Settle();
  EXPECT_EQ(messages, std::vector<std::string>{"No data for this day"});

  auto& calendar = Nth<MonthCalendar>(form);
  calendar.Lastmonth();
  test::Click(calendar, calendar.CellRect(20).center());
  EXPECT_EQ(messages.back(), "No data for this day!");

  form.LoadDayData();
  hours.item(16)->setSelected(true);
  Oscilloscope().Unload();
  test::Settle();
  EXPECT_EQ(messages.size(), 3U);
}

TEST_F(OscilloscopeTest, LeavesOutWhatTheUnitDoesNotMeasure) {
  Form3& form = Open();
  auto& curves = Nth<CurvePanel>(form);
  const QPoint placeOfTemperature = curves.Box(5).pos();
  DataCenter.HasTemperature = kClear;
  form.LoadDayData();
  EXPECT_TRUE(curves.Box(5).isHidden());
  EXPECT_FALSE(curves.IsOn(5));
  EXPECT_EQ(curves.Box(kEventSwitch).pos(), placeOfTemperature);
  DataCenter.HasTemperature = kSet;
  form.LoadDayData();
  EXPECT_TRUE(curves.IsOn(5));
}

}  // namespace
}  // namespace varek
