// Protection needs nothing to look at: from the status line that reports the mains failure to the
// command that shuts the system down, in a program that links no widgets.
#include <gtest/gtest.h>

#include <link.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "core/data_center.h"
#include "link/protocol.h"
#include "platform/system/paths.h"
#include "platform/time/timers.h"
#include "records/events.h"
#include "records/files/databases.h"
#include "support/fake_clock.h"

namespace varek {
namespace {

namespace fs = std::filesystem;

constexpr char kOnBattery[] = "(000.0 220.0 219.8 034 50.0 2.05 35.0 10000001\r";

int NoteToolkit(dl_phdr_info* library, size_t, void* found) {
  const std::string name = library->dlpi_name;
  for (const char* part : {"Qt6Gui", "Qt6Widgets"})
    if (name.find(part) != std::string::npos) *static_cast<std::string*>(found) += name + " ";
  return 0;
}

TEST(ProtectionTest, LeadsFromTheStatusLineToTheShutdownWithoutAToolkit) {
  std::string widgets;
  dl_iterate_phdr(NoteToolkit, &widgets);
  EXPECT_EQ(widgets, "");

  const fs::path folder = fs::temp_directory_path() / ("varek-protect-" + std::to_string(getpid()));
  fs::create_directories(folder);
  fs::copy(INITIAL_FILES, folder / "database");
  fs::create_directory_symlink(INITIAL_FILES "/image", folder / "image");
  platform::SetProgramFolder(folder);
  setenv("VAREK_SHUTDOWN_COMMAND", ("echo down > " + (folder / "down").string()).c_str(), 1);
  test::FakeClock clock({2026, 3, 10, 12, 0, 0});
  ASSERT_TRUE(OpenDatabases());
  DataCenter.IsConnect = DataCenter.settings.PowerFailSystemEnable = kSet;
  DataCenter.settings.PowerFailSystemDelay = 1;

  const platform::Timer evaluation("evaluation", CheckUPSEvents, 1000);
  ParseSerialReply(kOnBattery);
  clock.Advance(60'000);
  EXPECT_FALSE(fs::exists(folder / "down"));
  clock.Advance(2000);
  for (int wait = 0; wait < 1000 && !fs::exists(folder / "down"); ++wait) usleep(10'000);
  EXPECT_TRUE(fs::exists(folder / "down"));

  CloseDatabases();
  fs::remove_all(folder);
}

}  // namespace
}  // namespace varek
