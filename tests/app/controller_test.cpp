// The controller: start order, stop order, the close that it refuses.

#include "app/controller.h"

#include <gmock/gmock.h>

#include <optional>

#include "core/configuration.h"
#include "core/data_center.h"
#include "link/port_search.h"
#include "platform/storage/database.h"
#include "platform/system/paths.h"
#include "platform/time/timers.h"
#include "records/shutdown/shutdown.h"
#include "records/shutdown/system_countdown.h"
#include "support/hid_unit.h"
#include "support/monitor_fixture.h"

namespace varek {
namespace {

class ControllerTest : public test::MonitorTest {
 protected:
  ControllerTest() { test::InstallPictures(Folder()); }

  /// The status that the start or the stop ended the process with, or nothing.
  template <typename Action>
  std::optional<int> StatusOf(Action action) {
    try {
      action();
    } catch (const test::ProcessEnded& ended) {
      return ended.status;
    }
    return {};
  }

  std::optional<int> Load() {
    return StatusOf([this] { controller.Form_Load(); });
  }

  std::string Path(const std::string& name) const { return Folder() + "/" + name; }

  Form12 controller;
};

TEST_F(ControllerTest, AnyErrorOnTheWayEndsTheStartInOrder) {
  programsMissing = true;  // The save helper is the last thing that can fail.
  EXPECT_EQ(Load(), 1);
  EXPECT_EQ(messages.back(), "Initial Error!");
  EXPECT_EQ(EventRows(), (std::vector<int>{1, 2}));
  EXPECT_EQ(DataCenter.ExitInProgress, kSet);
}

TEST_F(ControllerTest, AFirstStartWithoutAUnitTakesUSBUnlessAPortIsChosenMeanwhile) {
  Load();
  EXPECT_EQ(platform::ReadWholeFile(Path("config.qmz")).substr(0, 6), "F\n800\n");
  DataCenter.settings.AutoSearchPort = kSet;
  WriteConfig();
  platform::Timer choose(
      "choose", [] { SetPort(3); }, 3000);
  Load();
  EXPECT_EQ(platform::ReadWholeFile(Path("config.qmz")).substr(0, 4), "F\n3\n");
}

TEST_F(ControllerTest, ThePollsAndSamplesHaveTheirBeats) {
  test::HidUnit unit(0xFFFF, 0);
  Load();
  clock.Advance(10'000);
  unit.sent.clear();
  const auto samples = [&] {
    platform::Database database(Path("database/data.mdb"));
    return database.OpenRecordset("20260310")->RecordCount();
  };
  const auto before = samples();
  clock.Advance(20'000);
  EXPECT_EQ(unit.sent.size(), 10U);
  EXPECT_EQ(samples() - before, 20);
  unit.plugged = false;
  clock.Advance(20'000);
  const auto atTheEnd = samples();
  clock.Advance(5'000);
  EXPECT_EQ(samples(), atTheEnd) << "none without a link";
}

TEST_F(ControllerTest, TheStopWritesItsEventBeforeStorageCloses) {
  Load();
  StartSystemShutdown(5);
  EXPECT_EQ(StatusOf([this] { controller.Stop(); }), 0);
  EXPECT_EQ(EventRows(), (std::vector<int>{1, 2}));
  EXPECT_FALSE(SystemCountdown().IsLoaded());
  EXPECT_FALSE(DataCenter.DatabaseReady);
}

TEST_F(ControllerTest, ACloseFromOutsideTakesTheWindowsButNotTheMonitor) {
  Load();
  StartSystemShutdown(5);
  bool cancel = false;
  controller.Form_Unload(cancel);
  EXPECT_TRUE(cancel);
  EXPECT_FALSE(SystemCountdown().IsLoaded());
  EXPECT_TRUE(DataCenter.DatabaseReady);
  controller.EndUPSEE();
  cancel = false;
  controller.Form_Unload(cancel);
  EXPECT_FALSE(cancel);
}

TEST_F(ControllerTest, RecordingThatStopsIsToldOnceThoughItsErrorPassesUp) {
  Load();
  clock.Advance(1000);
  test::Journal journal;
  platform::Database other(Path("database/Event.mdb"));
  other.BeginTransaction();
  DataCenter.flags.Utility = DataCenter.flags.TestProgress = kSet;
  clock.Advance(3000);
  EXPECT_THAT(DataCenter.DebugLines[1], testing::HasSubstr("Events are not recorded: database is"));
  other.Rollback();
  DataCenter.flags.Utility = kClear;
  clock.Advance(1000);
  EXPECT_THAT(DataCenter.DebugLines[0], testing::HasSubstr("Events are recorded again"));
  EXPECT_EQ(journal.Take(),
            "recording of events: could not write to Event.mdb: database is locked\n"
            "recording of events: works again\n");
}

}  // namespace
}  // namespace varek
