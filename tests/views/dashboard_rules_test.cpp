// What the dashboard shows for which state, without its window: lamps, menu strip, dial panel.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "core/data_center.h"
#include "core/link_record.h"
#include "pictures/scales.h"
#include "platform/system/paths.h"
#include "records/shutdown/system_countdown.h"
#include "support/monitor_fixture.h"
#include "texts/language.h"
#include "views/dashboard/control_buttons.h"
#include "views/dashboard/instrument_panel.h"
#include "views/dashboard/menu_sizes.h"
#include "views/dashboard/status_lamps.h"

namespace varek {
namespace {

class DashboardRules : public test::MonitorTest {
 protected:
  DashboardRules() {
    test::InstallPictures(Folder());
    Loadlanguage(0);
    DataCenter.IsConnect = kSet;
    DataCenter.readings.BatteryVoltage = 2.6F;
    DataCenter.identity.UPSVersion = "V1.0";
    DataCenter.settings.UseCelsius = kSet;
  }
};

/// What one state shows: a picture for each lamp, nothing for a dark one.
std::string Lamps() {
  std::string shown;
  for (int i = 0; i < kLampCount; ++i) {
    const auto lamp = static_cast<Lamp>(i);
    const std::string picture = LampPicture(lamp).value();
    shown += IsLampShown(lamp) ? picture.substr(0, picture.find('.')) + " " : "- ";
  }
  return shown;
}

TEST_F(DashboardRules, LampsFollowTheState) {
  auto& state = DataCenter;
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[] {}, "good powerok nobatterylow notest online "},
      {[&] { state.flags.Bypass = kSet; }, "good powerok nobatterylow notest bypass "},
      // The string's voltage is not known: 0 percent, charging.
      {[&] { state.flags.UPStype = kSet; }, "charge powerok nobatterylow notest avr "},
      {[&] { state.flags.Bypass = kClear; }, "charge powerok nobatterylow notest offline "},
      {[&] { state.flags.UPStype = kClear, state.flags.TestProgress = kSet; },
       "good powerok nobatterylow testing online "},
      {[&] { state.flags.UPSFailed = kSet; }, "good powerok nobatterylow batteryf online "},
      {[&] { state.readings.Temperature = 60.1F, state.flags.UPSFailed = kClear; },
       "hot powerok nobatterylow testing online "},
      {[&] { state.readings.Temperature = 60, state.flags.Utility = kSet; },
       "good powerf nobatterylow testing - "},
      {[&] { state.readings.LoadPercent = 101, state.flags.BatLow = kSet; },
       "overload powerf batterylow testing - "},
      {[&] { state.IsConnect = kClear; }, "disconnect - - - - "}};
  for (const auto& [change, lamps] : cases) {
    change();
    EXPECT_EQ(Lamps(), lamps);
  }
}

TEST(MenuStripSizes, GrowTickByTickAndCollapseOnTheLowestTenth) {
  MenuSizes sizes;
  const auto shown = [&sizes] {
    std::vector<int> all;
    for (int item = 0; item < kMenuItems; ++item) all.push_back(sizes.Size(item));
    return all;
  };
  EXPECT_EQ(sizes.Lefts(765)[0], 382 - 144);  // Half of 9 x 32; the tenth does not count.
  sizes.Hover(9, 0);
  EXPECT_FALSE(sizes.Tick());  // A fifth of the way, to the nearest whole number.
  EXPECT_EQ(shown(), (std::vector<int>{32, 32, 32, 32, 32, 32, 32, 36, 40, 46}));
  int ticks = 0;
  while (!sizes.Tick()) ASSERT_LT(++ticks, 100);
  EXPECT_EQ(shown(), (std::vector<int>{32, 32, 32, 32, 32, 32, 32, 50, 70, 100}));
  EXPECT_EQ(sizes.Lefts(800)[9] - sizes.Lefts(800)[0], 7 * 32 + 50 + 70);
  sizes.Hover(8, 64);
  while (!sizes.Tick()) ASSERT_LT(++ticks, 200);
  EXPECT_EQ(shown(), std::vector<int>(10, 32));
}

TEST_F(DashboardRules, TheUnitAndTheSizeChooseThePanel) {
  struct Case {
    const char* version;
    Flag upsType;
    int width;
    const char* picture;
  };
  const Case cases[] = {
      {"V1.0", kClear, 779, "instrument640.jpg"},
      {"V1.0", kSet, 780, "OFFinstrument800.jpg"},
      {"QZ0123", kClear, 1024, "NoLoadinstrument1024.jpg"},
      {"", kClear, 1023, "NoLoadinstrument800.jpg"},
  };
  InstrumentPanel panel;
  for (const Case& c : cases) {
    DataCenter.identity.UPSVersion = c.version;
    DataCenter.flags.UPStype = c.upsType;
    panel.Resize(c.width, c.width * 664 / 764, 500);
    EXPECT_EQ(PanelPicture(ChooseSizeClass(c.width)), c.picture);
    bool changed = true;
    panel.ReNewBuffer(changed);
    EXPECT_FALSE(changed);
  }
}

int Light(const platform::Surface& surface, Point p) {
  const auto pixel = surface.Pixel(static_cast<int>(std::lround(p.x - 0.5)),
                                   static_cast<int>(std::lround(p.y - 0.5)));
  return std::min({pixel.red, pixel.green, pixel.blue});
}

TEST_F(DashboardRules, NeedlesPointAtTheTicksOfTheirReadings) {
  for (const int clientWidth : {700, 900, 1100}) {
    const SizeClass& sizeClass = ChooseSizeClass(clientWidth);
    InstrumentPanel panel;
    panel.Resize(clientWidth, sizeClass.designWidth, sizeClass.designHeight);
    const std::string picture = PanelPicture(sizeClass);
    const platform::Surface face(platform::ImagePath(picture));
    const double factor = sizeClass.sizeFactor;
    for (const DialScale& scale : kDialScales) {
      const Dial& dial = DialOf(scale.dial);
      for (int value = std::max(30, scale.majorStep); value < FullScale(scale);
           value += scale.majorStep) {
        DataCenter.readings.InputVoltage = DataCenter.readings.OutputVoltage =
            DataCenter.readings.Frequency = DataCenter.readings.Temperature =
                static_cast<float>(value);
        for (int frame = 0; frame < 150; ++frame) panel.Frame();
        const double angle = TargetAngle(dial, value);
        const Point tick =
            OnDial(dial, factor, angle, (scale.majorStart + scale.tickEnd) / 2 * factor);
        const Point needle = OnDial(dial, factor, angle, dial.length * 0.6 * factor);
        EXPECT_GT(Light(face, tick), 60) << picture << scale.dial << " " << value;
        EXPECT_GT(Light(panel.Picture(), needle) - Light(face, needle), 60)
            << picture << scale.dial << " " << value;
      }
    }
  }
}

TEST_F(DashboardRules, ShutdownButtonsStartTheirOwnCountdown) {
  DataCenter.settings.SystemShutdownBuffer = 7;
  DataCenter.settings.UPSShutdownBuffer = 9;
  DataCenter.readings.OutputVoltage = 220;
  PressControl(kShutDownComputer);
  EXPECT_EQ(SystemCountdown().Get().Seconds(), 7 * 60);
  EXPECT_FALSE(DataCenter.FormOpen[11]);
  PressControl(kShutDownUnit);
  Link.PendingCommand.clear();
  clock.Advance(1000);
  EXPECT_TRUE(Link.PendingCommand.starts_with("S09")) << Link.PendingCommand;
}

}  // namespace
}  // namespace varek
