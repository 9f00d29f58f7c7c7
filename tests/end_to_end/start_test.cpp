// The ways to start: the search of a first start, a second copy, and every argument on a host with
// and without a service manager.

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>

#include "end_to_end/monitor_process.h"
#include "support/serial_line.h"

namespace varek::test {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr char kDesktopEntry[] = "root/etc/xdg/autostart/Varek.desktop";
constexpr char kUnit[] = "root/etc/systemd/system/varekservice.service";
constexpr char kEnabled[] = "root/etc/systemd/system/multi-user.target.wants/varekservice.service";

/// The arguments of each call of `program`, joined by blanks.
Texts Of(const Monitor& monitor, const std::string& program) {
  Texts found;
  for (const Texts& call : monitor.Calls()) {
    if (call[0] != program) continue;
    std::string& arguments = found.emplace_back();
    for (size_t i = 1; i < call.size(); ++i) arguments += (i > 1 ? " " : "") + call[i];
  }
  return found;
}

const Settings kMailAtTheEnd{{12, "FTFFFFFFFFFF"}};

TEST_F(EndToEnd, AFirstStartFindsTheUnitAndASecondCopyGivesWayMeanwhile) {
  Monitor& monitor = Install();
  const std::string config = monitor.Path("config.qmz");
  fs::remove(config);
  monitor.Start();
  EXPECT_EQ(monitor.Stop(), 0);
  EXPECT_FALSE(fs::exists(config)) << "a stop in the search";
  fs::rename(monitor.Path("dev/com1"), monitor.Path("dev/com3"));
  const auto before = Clock::now();
  monitor.Start();
  EXPECT_EQ(monitor.LaunchAnother(), 0);
  EXPECT_FALSE(fs::exists(config)) << "the search was over before the second copy ended";
  monitor.Await("the file", [&] { return fs::exists(config); });
  EXPECT_GT(Clock::now() - before, 7s);
  const Texts lines = Split(ReadFile(config), '\n');
  EXPECT_EQ(lines.at(0) + lines.at(1), "F3");
  monitor.AwaitEvents({1, 2, 1, 3});
  EXPECT_EQ(monitor.LaunchAnother(), 0);
  EXPECT_EQ(monitor.Stop(), 0);
}

/// The service's account and a person's, also where no session has set up an environment.
TEST_F(EndToEnd, CopiesOfAllAccountsSeeEachOther) {
  if (geteuid() != 0) GTEST_SKIP() << "needs a second account";
  const std::string root = "env -u XDG_RUNTIME_DIR";
  const std::string person = "setpriv --reuid=65534 --regid=65534 --clear-groups " + root;
  Monitor& monitor = Install({{2, "800"}});
  const auto expectAnswer = [&](const std::string& by) {
    monitor.StartBy(by);
    EXPECT_EQ(monitor.LaunchAnother(), 0);
    EXPECT_EQ(ReadFile(monitor.Path("another")),
              "Varek is running without a display. Its web console is off.\n");
  };
  monitor.Start();
  fs::permissions(monitor.Path(""), fs::perms(0755));
  fs::permissions(monitor.Path("config.qmz"), fs::perms(0600));
  expectAnswer(person);  // who may neither write there nor read the settings
  expectAnswer(root);
  EXPECT_EQ(monitor.Stop(), 0);

  const std::string others = " ! -type l ! -type s ! -name .varek.lock";
  EXPECT_EQ(std::system(("find " + monitor.Path("") + others + " -exec chmod 777 {} +").c_str()),
            0);
  monitor.StartBy(person);
  monitor.Start();
  expectAnswer(root);
  expectAnswer(person);
  EXPECT_EQ(monitor.Stop(SIGKILL), -1);  // leaves its lock and its socket behind
  monitor.StartBy(root);
  monitor.Start();
  EXPECT_EQ(monitor.Stop(), 0);
}

TEST_F(EndToEnd, ArgumentsDoWhatTheirKindOfSystemSays) {
  const struct {
    bool service;  ///< the host has a service manager
    const char* argument;
    bool ends;          ///< the start ends by itself
    const char* asked;  ///< of the service manager
    Texts files;        ///< what is there afterwards
  } cases[] = {
      {false, "\\install", true, "", {kDesktopEntry}},
      {false, "\\close", true, "", {kDesktopEntry}},
      {false, "\\uninstall", true, "", {kDesktopEntry}},
      {false, "\\start", false, "", {kDesktopEntry}},
      {false, "\\M", false, "", {kDesktopEntry}},
      {true, "\\install", true, "daemon-reload", {kDesktopEntry, kEnabled, kUnit}},
      {true, "\\start", true, "start varekservice.service", {kDesktopEntry, kEnabled, kUnit}},
      {true, "\\close", true, "stop varekservice.service", {kDesktopEntry, kEnabled, kUnit}},
      {true, "\\uninstall", true, "daemon-reload", {kDesktopEntry}},
      {true, "\\M", false, "", {kDesktopEntry}},
      {true, "", false, "", {kDesktopEntry}},
  };
  Monitor& monitor = Install(kMailAtTheEnd);
  const auto starts = [&] { return Of(monitor, "ShowAutoSave").size(); };
  Texts asked;
  size_t guarded = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.service ? "service " : "no service ") + c.argument);
    if (c.service) fs::create_directories(monitor.Path("root/run/systemd/system"));
    monitor.Launch("'" + std::string(c.argument) + "'");
    if (!c.ends) monitor.Await("the start", [&] { return starts() > guarded; });
    EXPECT_EQ(c.ends ? monitor.AwaitEnd() : monitor.Stop(), 0);
    guarded += c.ends ? 0 : 1;
    EXPECT_EQ(starts(), guarded);
    // Nobody waits for what is started: it may still be on its way.
    if (*c.asked) asked.push_back(c.asked);
    PumpUntil([&] {
      return Of(monitor, "systemctl").size() >= asked.size() &&
             Of(monitor, "mailto").size() >= guarded;
    });
    EXPECT_EQ(Of(monitor, "systemctl"), asked);
    // A copy that has never guarded does not tell people that it has stopped.
    EXPECT_EQ(Of(monitor, "mailto").size(), guarded);
    Texts files;
    for (const char* file : {kDesktopEntry, kEnabled, kUnit}) {
      if (fs::exists(monitor.Path(file))) files.push_back(file);
    }
    EXPECT_EQ(files, c.files);
    // Where there are services, the copy that stays has found out that it is none.
    EXPECT_EQ(monitor.Says("1 109 [1063] "), c.service && !c.ends);
  }
}

TEST_F(EndToEnd, ALaterCopyWakesTheFirstUnlessTheSystemHasStartedIt) {
  for (const bool service : {false, true}) {
    Monitor& monitor = Install(kMailAtTheEnd);
    if (service) fs::create_directories(monitor.Path("root/run/systemd/system"));
    monitor.Start();
    for (const std::string argument : {"", "\\start", "/M", "\\M"}) {
      EXPECT_EQ(monitor.LaunchAnother("'" + argument + "'"), 0);
      const bool woken = ReadFile(monitor.Path("another")).find("is running") != std::string::npos;
      EXPECT_EQ(woken, argument != "\\M") << argument;
    }
    EXPECT_EQ(monitor.Stop(), 0);
    PumpUntil([&] { return !Of(monitor, "mailto").empty(); });
    EXPECT_EQ(Of(monitor, "mailto").size(), 1U);
    EXPECT_EQ(Of(monitor, "systemctl"), Texts{});
  }
}

}  // namespace

}  // namespace varek::test
