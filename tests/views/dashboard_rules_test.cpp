// What the dashboard shows for which state, without its window: lamps, menu strip, dial panel.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>

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

/// By the picture of the lamps 1 to 4.
const std::map<std::string, std::string> kLampTexts{{"powerok.jpg", "Mains power present"},
                                                    {"powerf.jpg", "Mains power failed"},
                                                    {"batterylow.jpg", "Battery low"},
                                                    {"nobatterylow.jpg", "Battery not low"},
                                                    {"batteryf.jpg", "UPS fault"},
                                                    {"testing.jpg", "Battery test running"},
                                                    {"notest.jpg", "No battery test running"},
                                                    {"avr.jpg", "Off-line, regulating (AVR)"},
                                                    {"offline.jpg", "Off-line, normal"},
                                                    {"bypass.jpg", "Bypass"},
                                                    {"online.jpg", "On-line"}};

/// What one state shows: a picture for each lamp, nothing for a dark one.
std::string Lamps() {
  std::string shown;
  for (int i = 0; i < kLampCount; ++i) {
    const auto lamp = static_cast<Lamp>(i);
    const std::string picture = LampPicture(lamp).value();
    shown += (IsLampShown(lamp) ? picture : "-") + " ";
    EXPECT_TRUE(std::ranges::count(kLampPictures, picture)) << lamp;
    if (lamp > 0) {
      EXPECT_EQ(LampText(lamp), kLampTexts.at(picture));
    }
  }
  return shown;
}

TEST_F(DashboardRules, LampsFollowTheState) {
  struct Case {
    std::function<void()> change;
    const char* lamps;
    const char* condition;  ///< the text of the first lamp
  };
  auto& state = DataCenter;
  const Case cases[] = {
      {[] {}, "good.jpg powerok.jpg nobatterylow.jpg notest.jpg online.jpg ", "Normal"},
      {[&] { state.flags.Bypass = kSet; },
       "good.jpg powerok.jpg nobatterylow.jpg notest.jpg bypass.jpg ", "Normal"},
      {[&] {
         state.flags.UPStype = kSet;
       },  // The string's voltage is not known: 0 percent, charging.
       "charge.jpg powerok.jpg nobatterylow.jpg notest.jpg avr.jpg ", "Battery charging"},
      {[&] { state.flags.Bypass = kClear; },
       "charge.jpg powerok.jpg nobatterylow.jpg notest.jpg offline.jpg ", "Battery charging"},
      {[&] { state.flags.UPStype = kClear, state.flags.TestProgress = kSet; },
       "good.jpg powerok.jpg nobatterylow.jpg testing.jpg online.jpg ", "Battery test running"},
      {[&] { state.flags.UPSFailed = kSet; },
       "good.jpg powerok.jpg nobatterylow.jpg batteryf.jpg online.jpg ", "UPS fault"},
      {[&] { state.readings.Temperature = 60.1F, state.flags.UPSFailed = kClear; },
       "hot.jpg powerok.jpg nobatterylow.jpg testing.jpg online.jpg ", "Over-temperature"},
      {[&] {
         state.settings.UseCelsius = state.flags.TestProgress = kClear,
         state.readings.Temperature = 60;
       },
       "good.jpg powerok.jpg nobatterylow.jpg notest.jpg online.jpg ", "Normal"},
      {[&] { state.readings.LoadPercent = 100, state.flags.Utility = kSet; },
       "good.jpg powerf.jpg nobatterylow.jpg notest.jpg - ", "On battery"},
      {[&] { state.readings.LoadPercent = 101, state.flags.BatLow = kSet; },
       "overload.jpg powerf.jpg batterylow.jpg notest.jpg - ", "Overload"},
      {[&] { state.IsConnect = kClear; }, "disconnect.jpg - - - - ", "No link to the UPS"}};
  for (const Case& c : cases) {
    c.change();
    EXPECT_EQ(Lamps(), c.lamps);
    EXPECT_EQ(LampText(kHealthLamp), c.condition) << c.lamps;
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
    Flag isConnect;
    int width;
    const char* picture;
    bool hasLoad;
    bool hasTemperature;
  };
  const Case cases[] = {
      {"V1.0", kClear, kSet, 779, "instrument640.jpg", true, true},
      {"V1.0", kSet, kSet, 780, "OFFinstrument800.jpg", true, false},
      {"QZ0123", kClear, kSet, 1024, "NoLoadinstrument1024.jpg", false, false},
      {"", kClear, kSet, 1023, "NoLoadinstrument800.jpg", false, false},
      {"V1.0", kClear, kClear, 1023, "NoLoadinstrument800.jpg", false, false},
  };
  InstrumentPanel panel;
  for (const Case& c : cases) {
    DataCenter.identity.UPSVersion = c.version;
    DataCenter.flags.UPStype = c.upsType;
    DataCenter.IsConnect = c.isConnect;
    panel.Resize(c.width, c.width * 664 / 764, 500);
    EXPECT_EQ(PanelPicture(ChooseSizeClass(c.width)), c.picture);
    EXPECT_EQ(DataCenter.HasLoad != 0, c.hasLoad) << c.picture;
    EXPECT_EQ(DataCenter.HasTemperature != 0, c.hasTemperature) << c.picture;
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

/// How far, in pixels along a circle around a dial, the middle of what `light` sees lies from
/// `angle`. Nothing when there is no light within 4 pixels.
std::optional<double> Offset(const Dial& dial, double factor, double angle, double radius,
                             const std::function<int(Point)>& light) {
  double sum = 0, weighted = 0;
  for (double pixels = -4; pixels <= 4; pixels += 0.1) {
    const double at = angle + pixels / radius * 180 / M_PI;
    const int seen = std::max(0, light(OnDial(dial, factor, at, radius)) - 60);
    sum += seen;
    weighted += seen * pixels;
  }
  if (sum == 0) return std::nullopt;
  return weighted / sum;
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
        const auto tick =
            Offset(dial, factor, angle, (scale.majorStart + scale.tickEnd) / 2 * factor,
                   [&](Point p) { return Light(face, p); });
        const auto needle = Offset(dial, factor, angle, dial.length * 0.6 * factor, [&](Point p) {
          return Light(panel.Picture(), p) - Light(face, p);
        });
        ASSERT_TRUE(tick && needle) << picture << scale.dial << " " << value;
        EXPECT_NEAR(*tick, 0, 0.8) << picture << scale.dial << " " << value;
        EXPECT_NEAR(*needle, 0, 0.8) << picture << scale.dial << " " << value;
      }
    }
  }
}

TEST_F(DashboardRules, ShutdownButtonsStartTheirOwnCountdown) {
  DataCenter.readings.OutputVoltage = 0;
  Link.PendingCommand.clear();
  PressControl(kCancelShutdowns);
  PressControl(kShutDownUnit);
  EXPECT_EQ(Link.PendingCommand, "");
  EXPECT_FALSE(DataCenter.FormOpen[11]);

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
