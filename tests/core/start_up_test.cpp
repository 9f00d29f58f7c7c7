// What a whole process can't easily show: the oldest kind of system, the hand-over to the service
// manager, and the text of a later copy.

#include "core/start_up.h"

#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>

#include "core/controller.h"
#include "platform/service.h"
#include "platform/single_copy.h"
#include "support/monitor_fixture.h"
#include "support/serial_line.h"

namespace varek {
namespace {

class StartUpTest : public test::MonitorTest {
 protected:
  StartUpTest() { setenv("VAREK_ROOT", Folder().c_str(), 1); }
  ~StartUpTest() override { setenv("VAREK_ROOT", "/nonexistent", 1); }

  std::string Entries() const { return Folder() + "/etc/xdg/autostart/"; }
};

TEST_F(StartUpTest, TheOldestSystemsGetBothEntriesAndGoOn) {
  EXPECT_EQ(HandleCommandLine("\\install", 1), StartUp::GoOn);
  EXPECT_TRUE(std::filesystem::exists(Entries() + "Varek.desktop"));
  EXPECT_TRUE(std::filesystem::exists(Entries() + "Varek-services.desktop"));
  EXPECT_EQ(HandleCommandLine("\\close", 1), StartUp::End);
}

TEST_F(StartUpTest, AnEntryThatCannotBeWrittenLetsTheNewestSystemsGoOn) {
  setenv("VAREK_ROOT", "/proc/nonexistent", 1);
  EXPECT_EQ(HandleCommandLine("\\install", 3), StartUp::GoOn);
  EXPECT_EQ(HandleCommandLine("\\install", 2), StartUp::End);
  EXPECT_EQ(HandleCommandLine("\\uninstall", 2), StartUp::End);
}

TEST_F(StartUpTest, AServiceTellsItsManagerThatItIsReady) {
  const int manager = socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = Folder() + "/notify";
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(bind(manager, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  setenv("NOTIFY_SOCKET", path.c_str(), 1);
  setenv("SYSTEMD_EXEC_PID", "1", 1);  // a program that the service has started
  EXPECT_EQ(HandleCommandLine("", 2), StartUp::GoOn);
  EXPECT_FALSE(platform::RunsAsService());
  setenv("SYSTEMD_EXEC_PID", std::to_string(getpid()).c_str(), 1);
  EXPECT_EQ(HandleCommandLine("\\M", 2), StartUp::GoOn);
  char text[64] = "";
  EXPECT_GT(read(manager, text, sizeof text - 1), 0);
  EXPECT_STREQ(text, "READY=1\nSTATUS=web console off");
  EXPECT_TRUE(platform::RunsAsService());
  EXPECT_EQ(getenv("NOTIFY_SOCKET"), nullptr);  // not for the programs that are started from here
  close(manager);
}

TEST_F(StartUpTest, OnlyShowBringsUpTheDashboard) {
  test::InstallPictures(Folder());
  Form12 controller;
  controller.Form_Load();
  for (const char* text : {"show", "Show ", ""}) controller.Form_LinkExecute(text);
  EXPECT_FALSE(controller.IsWindowShown());
  platform::SendToCopy(std::string(100'000, 'S'));
  platform::SendToCopy("Show");
  EXPECT_TRUE(test::PumpUntil([&] { return controller.IsWindowShown(); }));
  platform::StopListening();
}

}  // namespace
}  // namespace varek
