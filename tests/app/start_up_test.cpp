// What a whole process can't easily show: systems of other kinds, the hand-over to the service
// manager, and the text of a later copy.

#include "app/start_up.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <future>

#include "app/controller.h"
#include "core/data_center.h"
#include "platform/copies/single_copy.h"
#include "platform/system/paths.h"
#include "platform/system/service.h"
#include "support/monitor_fixture.h"
#include "support/serial_line.h"
#include "web/server/web_console.h"

namespace varek {
namespace {

using namespace std::chrono_literals;

class StartUpTest : public test::MonitorTest {
 protected:
  StartUpTest() {
    setenv("VAREK_ROOT", Folder().c_str(), 1);
    setenv("PATH", Folder().c_str(), 1);  // no service manager can be reached
    platform::StopListening();
    platform::ReleaseCopyLock();
  }
  ~StartUpTest() override { setenv("VAREK_ROOT", "/nonexistent", 1); }

  std::string Entries() const { return Folder() + "/etc/xdg/autostart/"; }
};

TEST_F(StartUpTest, WhatCannotBeWrittenIsRefusedOrReplacedByEachKindOfSystem) {
  EXPECT_EQ(HandleCommandLine("\\install", 1), StartUp::GoOn);
  EXPECT_NE(platform::ReadWholeFile(Entries() + "Varek.desktop")
                .find("\nExec=\"/Varek\" \"\\\\\\\\M\"\n"),
            std::string::npos);
  EXPECT_TRUE(platform::IsFile(Entries() + "Varek-services.desktop"));
  EXPECT_EQ(HandleCommandLine("\\close", 1), StartUp::End);

  const std::filesystem::path etc = Folder() + "/etc";
  std::filesystem::remove_all(etc);
  std::ofstream(etc) << "no folder";
  EXPECT_EQ(HandleCommandLine("\\install", 3), StartUp::GoOn);
  EXPECT_EQ(HandleCommandLine("\\install", 2), StartUp::Refused);
  std::filesystem::remove(etc);
  std::filesystem::create_directory(etc);
  std::ofstream(etc / "systemd") << "no folder";
  EXPECT_EQ(HandleCommandLine("\\install", 2), StartUp::End);
  EXPECT_TRUE(platform::IsFile(Entries() + "Varek.desktop"));
  setenv("VAREK_ROOT", "/proc/nonexistent", 1);
  EXPECT_EQ(HandleCommandLine("\\uninstall", 2), StartUp::End);
}

TEST_F(StartUpTest, TheServiceDoesNotTakeItsStarterForTheRunningCopy) {
  EXPECT_EQ(HandleCommandLine("\\start", 2), StartUp::End);
  const int lock = open((Folder() + "/.varek.lock").c_str(), O_RDWR);
  EXPECT_EQ(flock(lock, LOCK_EX | LOCK_NB), 0);
  close(lock);
}

TEST_F(StartUpTest, AServiceTellsItsManagerHowThingsStand) {
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
  for (const char* status : {"a", "a", "b"}) platform::ReportServiceStatus(status);
  for (const char* told : {"STATUS=starting", "READY=1\nSTATUS=a", "STATUS=b"}) {
    char text[64] = "";
    EXPECT_GT(read(manager, text, sizeof text - 1), 0);
    EXPECT_STREQ(text, told);
  }
  EXPECT_TRUE(platform::RunsAsService());
  EXPECT_EQ(getenv("NOTIFY_SOCKET"), nullptr);  // not for the programs that are started from here
  close(manager);
}

TEST_F(StartUpTest, WithoutADisplayOnlyShowIsAnsweredAndNothingOpens) {
  test::InstallPictures(Folder());
  Form12 controller;
  controller.Form_Load();
  const auto answer = [](const std::string& text) {
    auto call = std::async(std::launch::async, platform::SendToCopy, text);
    test::PumpUntil([&] { return call.wait_for(0s) == std::future_status::ready; });
    return call.get();
  };
  for (const char* text : {"show", "Show ", "\n"}) EXPECT_EQ(answer(text), "") << text;
  EXPECT_EQ(answer(std::string(100'000, 'S')), "");
  const std::string running = "Varek is running without a display. Its web console ";
  StopWebConsole();
  DataCenter.settings.WebPort = 0;  // any that is free
  EXPECT_EQ(answer("Show"), running + "waits for port 0, which is taken.");
  StartWebConsole();
  EXPECT_EQ(answer("Show"), running + "is at http://127.0.0.1:0/");
  DataCenter.settings.WebEnabled = kClear;
  EXPECT_EQ(answer("Show"), running + "is off.");
  StopWebConsole();
  EXPECT_FALSE(controller.IsWindowShown());

  const auto before = std::chrono::steady_clock::now();
  EXPECT_EQ(platform::SendToCopy("Show"), "") << "from a copy that can't answer";
  EXPECT_LT(std::chrono::steady_clock::now() - before, 5s);
  platform::StopListening();
  EXPECT_FALSE(std::filesystem::exists(Folder() + "/.varek.sock"));
}

TEST_F(StartUpTest, OnlyWhoMayWriteInTheFolderCanHoldTheLock) {
  namespace fs = std::filesystem;
  const std::pair<int, int> modes[] = {{0755, 0600}, {0775, 0660}, {0777, 0666}, {0700, 0600}};
  for (const auto& [folder, lock] : modes) {
    fs::permissions(Folder(), fs::perms(folder));
    platform::ReleaseCopyLock();
    EXPECT_FALSE(AnotherInstanceRuns());
    EXPECT_EQ(fs::status(Folder() + "/.varek.lock").permissions(), fs::perms(lock)) << folder;
  }
}

}  // namespace
}  // namespace varek
