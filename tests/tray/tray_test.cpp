// The tray icon: when it comes, what it shows, what it does.

#include "tray/tray.h"

#include <filesystem>
#include <fstream>

#include "app/controller.h"
#include "core/data_center.h"
#include "core/error_list.h"
#include "platform/system/service.h"
#include "records/events.h"
#include "support/monitor_fixture.h"
#include "texts/language.h"

namespace varek {
namespace {

using Calls = std::vector<std::string>;
using namespace std::string_literals;

constexpr size_t kPixel = 22 + 40;  ///< behind the file's table and the bitmap's head

/// The smallest icon file that there is; its one pixel tells the stage.
std::string IconFile(int stage) {
  std::string bytes =
      "\0\0\1\0\1\0\1\1\0\0\1\0\x20\0\x30\0\0\0\x16\0\0\0"s
      "\x28\0\0\0\1\0\0\0\2\0\0\0\1\0\x20\0"s;
  bytes.resize(kPixel + 8);
  bytes[kPixel] = static_cast<char>(stage);
  return bytes;
}

/// A tray that writes down what it is told, a picture by its stage.
class WrittenTray final : public platform::TrayDriver {
 public:
  WrittenTray() { platform::ReplaceTrayDriver(this); }
  ~WrittenTray() override { platform::ReplaceTrayDriver(nullptr); }

  bool Add(const platform::IconPicture& picture, const std::string& tip) override {
    ++asked;
    if (isThere) Note("add", picture, tip);
    return isThere;
  }
  void Modify(const platform::IconPicture& picture, const std::string& tip) override {
    Note("modify", picture, tip);
  }
  void Delete() override { calls.push_back("delete"); }
  void SetActions(const platform::TrayActions& set) override { actions = set; }

  bool isThere = true;
  int asked = 0;
  Calls calls;
  platform::TrayActions actions;

 private:
  void Note(const char* call, const platform::IconPicture& picture, const std::string& tip) {
    calls.push_back(call + " "s + std::to_string(picture.bytes.at(kPixel)) + " " + tip);
  }
};

class TrayTest : public test::MonitorTest {
 protected:
  TrayTest() {
    Tray = TrayRecord();
    std::filesystem::remove_all(Folder() + "/image");
    std::filesystem::create_directory(Folder() + "/image");
    for (int stage = 0; stage <= 8; ++stage) {
      std::ofstream(Path(stage), std::ios::binary) << IconFile(stage);
    }
  }
  ~TrayTest() override { Tray = TrayRecord(); }

  std::string Path(int stage) const {
    return Folder() + "/image/Ico" + std::to_string(stage) + ".ico";
  }
  /// The tray is up only behind the start, whose port search takes seconds.
  void Start() {
    desktop.isThere = false;
    controller.Form_Load();
    Loadlanguage(0);
    desktop.isThere = true;
    desktop.asked = 0;
  }

  WrittenTray desktop;
  Form12 controller;
};

const char kFirst[] = "add 1 Varek(No link to the UPS)";

TEST_F(TrayTest, TheIconIsTriedEachSecondUntilThereIsATray) {
  Start();
  desktop.isThere = false;
  clock.Advance(3000);
  EXPECT_EQ(desktop.asked, 3);
  desktop.isThere = true;
  clock.Advance(5000);
  EXPECT_EQ(desktop.asked, 4);
  EXPECT_EQ(desktop.calls, Calls{kFirst});
}

TEST_F(TrayTest, EachChangeOfStageChangesPictureAndTipOnce) {
  Start();
  DataCenter.IsConnect = kSet;
  DataCenter.readings.BatteryVoltage = 1000;
  clock.Advance(1000);  // a link that is up with the icon is seen at once
  EXPECT_EQ(desktop.calls, (Calls{kFirst, "modify 0 Varek(Normal)"}));
  DataCenter.readings.BatteryVoltage = 0;
  const struct {
    Flag& flag;
    Flag value;
    const char* change;
  } cases[] = {
      {DataCenter.IsConnect, kSet, "modify 2 Varek(Battery charging)"},
      {DataCenter.flags.TestProgress, kSet, "modify 3 Varek(Battery test running)"},
      {DataCenter.flags.UPSFailed, kSet, "modify 5 Varek(UPS fault)"},
      {DataCenter.flags.Utility, kSet, "modify 7 Varek(On battery)"},
      {DataCenter.flags.BatLow, kSet, "modify 8 Varek(On battery, battery low)"},
      {DataCenter.readings.LoadPercent, 101, "modify 6 Varek(Overload)"},
      {DataCenter.IsConnect, kClear, "modify 1 Varek(No link to the UPS)"},
  };
  for (const auto& c : cases) {
    desktop.calls.clear();
    c.flag = c.value;
    CheckUPSEvents();
    CheckUPSEvents();
    EXPECT_EQ(desktop.calls, Calls{c.change});
  }
}

TEST_F(TrayTest, AMissingPictureLeavesTheOldOneAndIsListed) {
  Start();
  clock.Advance(1000);
  std::filesystem::remove(Path(7));
  DataCenter.IsConnect = DataCenter.flags.Utility = kSet;
  clock.Advance(2000);
  EXPECT_EQ(Form13::List1().back().substr(8), "form12 AddDataTimer53錯誤");
  EXPECT_EQ(desktop.calls, Calls{kFirst});
  EXPECT_EQ(EventRows(), (std::vector<int>{1, 6}));  // the event comes a second later
}

TEST_F(TrayTest, ASessionThatEndsBringsANewIconAndTheStopTakesIt) {
  Start();
  clock.Advance(1000);
  bool cancel = false;
  controller.Form_Unload(cancel);
  clock.Advance(5000);
  controller.EndUPSEE();
  EXPECT_EQ(desktop.calls, (Calls{kFirst, kFirst, "delete"}));
  EXPECT_EQ(Tray.TrayIconHandle, 0);
}

TEST_F(TrayTest, TheMenuFollowsTheLanguageAndReachesTheController) {
  EXPECT_EQ(desktop.actions.menu[1].caption, "結束程式");
  Start();
  EXPECT_EQ(desktop.actions.menu[1].caption, "Exit");

  std::filesystem::remove_all(Folder() + "/image");
  test::InstallPictures(Folder());  // the dashboard's
  desktop.actions.doubleClick();
  EXPECT_TRUE(controller.IsWindowShown());
  // The exit of a service goes through the machine's manager, which no test may reach.
  if (platform::RunsAsService()) GTEST_SKIP() << "an earlier case has made this process a service";
  EXPECT_THROW(desktop.actions.menu[1].action(), test::ProcessEnded);
  EXPECT_EQ(EventRows(), (std::vector<int>{1, 2}));
}

TEST_F(TrayTest, ATipEndsWithAWholeCharacterWithin63Bytes) {
  for (const auto& [head, bytes] : {std::pair("", 63), {"a", 61}}) {
    std::string tip = head;
    for (int i = 0; i < 30; ++i) tip += "電";
    platform::TrayModify({IconFile(0)}, tip);
    EXPECT_EQ(desktop.calls.back(), "modify 0 " + tip.substr(0, static_cast<size_t>(bytes)));
  }
}

}  // namespace
}  // namespace varek
