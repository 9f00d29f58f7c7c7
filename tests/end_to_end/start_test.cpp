// The ways to start: the search of a first start, a second copy, and every argument on a host with
// and without a service manager.

#include <unistd.h>

#include <algorithm>
#include <chrono>
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
Texts Of(const std::vector<Texts>& calls, const std::string& program) {
  Texts found;
  for (const Texts& call : calls) {
    if (call[0] != program) continue;
    std::string& arguments = found.emplace_back();
    for (size_t i = 1; i < call.size(); ++i) arguments += (i > 1 ? " " : "") + call[i];
  }
  return found;
}

TEST_F(EndToEnd, AFirstStartFindsTheUnitAndASecondCopyGivesWayMeanwhile) {
  Monitor& monitor = Install();
  const std::string config = monitor.Path("config.qmz");
  fs::remove(config);
  fs::rename(monitor.Path("dev/com1"), monitor.Path("dev/com3"));
  const auto before = Clock::now();
  monitor.Start();
  EXPECT_EQ(monitor.LaunchAnother(), 0);
  EXPECT_FALSE(fs::exists(config)) << "the search was over before the second copy ended";
  monitor.Await("the file", [&] { return fs::exists(config); });
  EXPECT_GT(Clock::now() - before, 7s);
  const Texts lines = Split(ReadFile(config), '\n');
  EXPECT_EQ(lines.at(0) + lines.at(1), "F3");
  monitor.AwaitEvents({1, 3});
  EXPECT_EQ(monitor.LaunchAnother(), 0);
  EXPECT_EQ(monitor.Stop(), 0);
}

/// The service's account and a person's, also where no session has set up an environment.
TEST_F(EndToEnd, CopiesOfAllAccountsSeeEachOther) {
  if (geteuid() != 0) GTEST_SKIP() << "needs a second account";
  const std::string root = "env -u XDG_RUNTIME_DIR";
  const std::string person = "setpriv --reuid=65534 --regid=65534 --clear-groups " + root;
  Monitor& monitor = Install({{2, "800"}});
  const auto openToAll = [&] {
    fs::permissions(monitor.Path(""), fs::perms::all);
    for (const auto& entry : fs::recursive_directory_iterator(monitor.Path(""))) {
      const bool own = entry.is_symlink() || entry.path().filename() == ".varek.lock";
      if (!own && !entry.is_socket()) fs::permissions(entry, fs::perms::all);
    }
  };
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

  openToAll();
  monitor.StartBy(person);
  monitor.Start();
  expectAnswer(root);
  expectAnswer(person);
  EXPECT_EQ(monitor.Stop(SIGKILL), -1);  // leaves its lock and its socket behind
  monitor.StartBy(root);
  monitor.Start();
  EXPECT_EQ(monitor.Stop(), 0);
}

TEST_F(EndToEnd, AStopInTheSearchWritesNoConfiguration) {
  Monitor& monitor = Install();
  fs::remove(monitor.Path("config.qmz"));
  monitor.Start();
  const auto before = Clock::now();
  EXPECT_EQ(monitor.Stop(), 0);
  EXPECT_LT(Clock::now() - before, 5s);
  EXPECT_FALSE(fs::exists(monitor.Path("config.qmz")));
  EXPECT_EQ(monitor.Events(), (std::vector<int>{1, 2}));
}

TEST_F(EndToEnd, ArgumentsDoWhatTheirKindOfSystemSays) {
  const struct {
    bool service;  ///< the host has a service manager
    const char* argument;
    bool other;   ///< another copy is running
    bool ends;    ///< the start ends by itself
    Texts asked;  ///< requests to the service manager
    Texts files;  ///< what is there afterwards
  } cases[] = {
      {false, "\\install", false, true, {}, {kDesktopEntry}},
      {false, "\\start", false, false, {}, {}},
      {false, "\\start", true, true, {}, {}},
      {false, "\\close", false, true, {}, {}},
      {false, "\\uninstall", false, true, {}, {}},
      {false, "\\M", false, false, {}, {}},
      {false, "\\M", true, true, {}, {}},
      {false, "/M", true, true, {}, {}},
      {true, "\\install", false, true, {"daemon-reload"}, {kEnabled, kUnit}},
      {true, "\\start", false, true, {"start varekservice.service"}, {}},
      {true, "\\start", true, true, {}, {}},
      {true, "\\close", false, true, {"stop varekservice.service"}, {}},
      {true, "\\uninstall", false, true, {"daemon-reload"}, {}},
      {true, "\\M", false, false, {}, {}},
      {true, "\\M", true, true, {}, {}},
      {true, "", false, false, {}, {}},
      {true, "", true, true, {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.service ? "service " : "no service ") + c.argument +
                 (c.other ? " beside another" : ""));
    Monitor& monitor = Install({{12, "FTFFFFFFFFFF"}});
    if (c.service) fs::create_directories(monitor.Path("root/run/systemd/system"));
    const std::string argument = "'" + std::string(c.argument) + "'";
    if (c.other) {
      monitor.Start();
      EXPECT_EQ(monitor.LaunchAnother(argument), 0);
      EXPECT_EQ(monitor.Stop(), 0);
    } else {
      monitor.Launch(argument);
      const auto isUp = [&] { return Of(monitor.Calls(), "ShowAutoSave").size() == 1; };
      if (!c.ends) monitor.Await("the start", isUp);
      EXPECT_EQ(c.ends ? monitor.AwaitEnd() : monitor.Stop(), 0);
      EXPECT_EQ(isUp(), !c.ends);
    }
    // Nobody waits for the manager's command: it may still be on its way.
    const auto asked = [&] { return Of(monitor.Calls(), "systemctl"); };
    PumpUntil([&] { return asked().size() >= c.asked.size(); });
    EXPECT_EQ(asked(), c.asked);
    // A copy that has never watched does not report to people that it has stopped.
    const bool guarded = c.other || !c.ends;
    const auto mails = [&] { return Of(monitor.Calls(), "mailto").size(); };
    PumpUntil([&] { return mails() >= (guarded ? 1 : 0); });
    EXPECT_EQ(mails(), guarded ? 1 : 0);
    const std::vector<int> events = monitor.Events();
    for (int type : {1, 2}) EXPECT_EQ(std::ranges::count(events, type), guarded ? 1 : 0);
    Texts files;
    for (const char* file : {kDesktopEntry, kEnabled, kUnit}) {
      if (fs::exists(monitor.Path(file))) files.push_back(file);
    }
    EXPECT_EQ(files, c.files);
    // Where there are services, the copy that stays has found out that it is none.
    EXPECT_EQ(monitor.Says("1 109 [1063] "), c.service && (c.other || !c.ends));
    monitors.clear();
  }
}

TEST_F(EndToEnd, WhatIsInstalledNamesTheProgram) {
  Monitor& monitor = Install();
  monitor.Launch("'\\install'");
  EXPECT_EQ(monitor.AwaitEnd(), 0);
  EXPECT_NE(ReadFile(monitor.Path(kDesktopEntry))
                .find("Exec=\"" + monitor.Path("Varek") + "\" \"\\\\\\\\M\"\n"),
            std::string::npos);
  fs::create_directories(monitor.Path("root/run/systemd/system"));
  monitor.Launch("'\\install'");
  EXPECT_EQ(monitor.AwaitEnd(), 0);
  EXPECT_NE(ReadFile(monitor.Path(kUnit)).find("ExecStart=\"" + monitor.Path("Varek") + "\"\n"),
            std::string::npos);
  EXPECT_TRUE(fs::equivalent(monitor.Path(kUnit), monitor.Path(kEnabled)));
  monitor.Launch("'\\uninstall'");
  EXPECT_EQ(monitor.AwaitEnd(), 0);
  EXPECT_FALSE(fs::exists(monitor.Path(kUnit)) || fs::is_symlink(monitor.Path(kEnabled)));
  EXPECT_TRUE(fs::exists(monitor.Path(kDesktopEntry)));
}

}  // namespace

}  // namespace varek::test
