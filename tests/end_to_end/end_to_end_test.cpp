// What the monitor does for its user, seen on the UPS, in the databases and at the sidecars.

#include "end_to_end/monitor_process.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <utility>

#include "platform/system/system.h"

namespace varek::test {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Types = std::vector<int>;

/// The longest test, therefore the first: a countdown that is seen to run takes a minute. The
/// countdowns that are cancelled begin first, so the others' end proves theirs has passed by.
TEST_F(EndToEnd, CountdownsRunToTheEndUnlessTheMainsReturn) {
  const Settings settings{{10, "T"}, {49, "1"}, {50, "1"}, {53, "TTTTT"}};
  Monitor& cancelled = Install(settings);
  Monitor& counting = Install(settings);
  for (Monitor* monitor : {&cancelled, &counting}) {
    monitor->Start();
    monitor->AwaitEvents({1, 3});
    monitor->Order("mains off");
    monitor->AwaitOrders({"C", "S01"});
  }
  cancelled.Order("mains on");
  cancelled.AwaitOrders({"C", "S01", "C"});

  counting.AwaitEvents({1, 3, 6, 5, 9, 9});
  const Texts moments = counting.Query(
      "Event.mdb", "SELECT strftime('%s', DateANDTime) FROM allevent ORDER BY rowid");
  EXPECT_GT(std::stoi(moments[3]) - std::stoi(moments[2]), 30) << "seconds from event 6 to 5";
  counting.Await("the output's end", [&] {
    return counting.Order("state").find(R"("shutdowns":1,)") != std::string::npos;
  });
  EXPECT_NE(cancelled.Order("state").find(R"("shutdowns":0,)"), std::string::npos);

  // A second failure finds no countdown that it could only shorten.
  cancelled.AwaitEvents({1, 3, 6, 8});
  cancelled.Order("mains off");
  cancelled.AwaitOrders({"C", "S01", "C", "C", "S01"});
  for (Monitor* monitor : {&cancelled, &counting}) EXPECT_EQ(monitor->Stop(), 0);
  EXPECT_EQ(cancelled.Events(), (Types{1, 3, 6, 8, 6, 2}));
  EXPECT_EQ(counting.Events(), (Types{1, 3, 6, 5, 9, 9, 2}));
  EXPECT_EQ(cancelled.Shutdowns(), 0u);
  EXPECT_EQ(counting.Shutdowns(), 1u);
  EXPECT_EQ(std::ranges::count(cancelled.Calls(), Texts{"Autosave"}), 2) << "once a countdown";
  EXPECT_EQ(std::ranges::count(counting.Calls(), Texts{"Autosave"}), 1);
}

/// The machine goes down at once, or just before the UPS: the UPS has been told all the same, and
/// the cause is on record. A delay of the UPS below the system's is nonsense and left out.
TEST_F(EndToEnd, TheUPSIsToldBeforeTheMachineGoes) {
  const struct {
    const char* order;
    Settings settings;
    std::string command;
    Types events;
  } cases[] = {
      {"mains off", {{53, "TTFFF"}}, "S00", {1, 3, 5, 9, 6, 9, 2}},
      {"mains off", {{50, "1"}, {53, "TTFFF"}}, "S01", {1, 3, 5, 9, 6, 2}},
      {"mains off", {{49, "1"}, {50, "1"}, {53, "TTFFF"}}, "S01", {1, 3, 6, 5, 9, 2}},
      {"batlow on", {{52, "2"}, {53, "FFTTF"}}, "S02", {1, 3, 5, 9, 7, 2}},
  };
  for (const auto& c : cases) {
    Monitor& monitor = Install(c.settings);
    monitor.EndWithTheSystem();
    monitor.Start();
    monitor.AwaitEvents({1, 3});
    monitor.Order(c.order);
  }
  for (size_t i = 0; i < monitors.size(); ++i) {
    EXPECT_EQ(monitors[i].AwaitEnd(), 0);
    EXPECT_EQ(monitors[i].Events(), cases[i].events) << i;
    monitors[i].AwaitOrders({"C", cases[i].command});
    EXPECT_EQ(monitors[i].Shutdowns(), 1u);
  }
}

TEST_F(EndToEnd, ProtectsWithoutItsRecords) {
  using Spoil = void (*)(const std::string& path);
  constexpr Spoil kSpoils[] = {
      [](const std::string& path) { fs::remove(path); },
      [](const std::string& path) { fs::permissions(path, fs::perms::owner_read); },
      [](const std::string& path) { WriteFile(path, std::string(8192, '?')); },
  };
  for (const Spoil spoil : kSpoils) {
    for (const char* file : {"database/data.mdb", "database/Event.mdb"}) {
      Monitor& monitor = Install({{53, "TTTTT"}});
      const std::string path = monitor.Path(file);
      SCOPED_TRACE(path);
      spoil(path);
      const std::string bytes = ReadFile(path);
      monitor.Start();
      EXPECT_TRUE(monitor.Says("Init Database Error!"));
      monitor.Order("mains off");
      monitor.Await("shutdown", [&] { return monitor.Shutdowns() > 0; });
      monitor.AwaitOrders({"C", "S00"});
      EXPECT_EQ(monitor.Calls(),
                (std::vector<Texts>{{"ShowAutoSave"}, {"alert", "UPSMains power failed"}}));
      EXPECT_EQ(monitor.Stop(), 0);
      EXPECT_EQ(monitor.Shutdowns(), 1u);
      EXPECT_EQ(ReadFile(path), bytes) << "left as it is";
    }
  }
}

TEST_F(EndToEnd, AStopLetsTheUPSBeToldFirst) {
  Monitor& monitor = Install({{50, "1"}, {53, "FTFFF"}});
  monitor.Start();
  monitor.AwaitEvents({1, 3});
  monitor.Order("mains off");
  monitor.AwaitOrders({"C"});
  EXPECT_EQ(monitor.Stop(), 0);
  monitor.AwaitOrders({"C", "S01"});
  EXPECT_EQ(monitor.Events(), (Types{1, 3, 6, 2}));
}

std::string EventName(const Monitor& monitor, int type, int language) {
  const std::string column = language == 0 ? "english" : "big5";
  const std::string number = std::to_string(130 + type);
  return monitor.Query("LangData.mdb",
                       "SELECT " + column + " FROM LangData WHERE number=" + number)[0];
}

/// What the settings hold in a text line: whatever a shell or a careless hand would change.
std::string Field(size_t line) { return " " + std::to_string(line) + " \"$HOME\" `id` *\\é管 "; }

/// A unit in trouble reports in this language, with the address of the console where it is on.
struct Report {
  int language;
  bool web;
  std::string port = std::to_string(10000 + getpid() % 20000 + language);
};

Settings MessageSettings(const Report& report) {
  Settings settings{
      {6, report.port},     {7, report.web ? "T" : "F"}, {11, std::to_string(report.language)},
      {12, "TTFTFTFTFFTF"}, {31, "FTTFFTTFFTFF"},        {32, " 1 "},
      {53, "FFFFT"}};
  for (size_t line = 13; line <= 48; ++line) settings.emplace(line, Field(line));
  settings[19] = "";
  return settings;
}

std::string Bracketed(const Texts& fields) {
  std::string text;
  for (const std::string& field : fields) text += "[" + field + "]";
  return text;
}

/// One event of each kind but 5, 9 and 12; in alphabetical order.
std::vector<Texts> ExpectedCalls(const Monitor& monitor, const Report& report) {
  const std::string link =
      "\r\n\r\n http://" + platform::LocalAddress() + ":" + report.port + "/index.htm";
  const std::string number = std::to_string(report.language);
  std::vector<Texts> calls{{"ShowAutoSave"}};
  for (int type : {6, 7, 10, 11})
    calls.push_back({"alert", "UPS" + EventName(monitor, type, report.language)});
  for (int type : {1, 2, 4, 6, 8, 11}) {
    const std::string body = (type == 1 ? "" : Field(18 + type)) + (report.web ? link : "");
    calls.push_back(
        {"mailto", Bracketed({Field(13), Field(14), Field(15), Field(16), Field(17),
                              EventName(monitor, type, report.language), body, "F", number})});
  }
  for (int type : {2, 3, 6, 7, 10}) {
    calls.push_back({"SMSTO", Bracketed({"1", Field(33), Field(34), Field(35), Field(36 + type),
                                         Field(36), "F", number})});
  }
  std::ranges::sort(calls);
  return calls;
}

TEST_F(EndToEnd, MessagesReachTheSidecarsByteForByte) {
  for (const Report& report : {Report{0, false}, Report{1, true}}) {
    Monitor& monitor = Install(MessageSettings(report));
    monitor.Start();
    monitor.AwaitEvents({1, 3});
    for (const char* order : {"load 101", "fault on", "batlow on", "mains off"}) {
      monitor.Order(order);
    }
    monitor.AwaitEventCount(6);
    monitor.Order("mains on");
    monitor.AwaitEventCount(7);
    monitor.Order("silent on");
    monitor.AwaitEventCount(8);
    EXPECT_EQ(monitor.Stop(), 0);
    const auto expected = ExpectedCalls(monitor, report);
    monitor.Await("the messages", [&] { return monitor.Calls().size() >= expected.size(); });
    std::vector<Texts> calls = monitor.Calls();
    std::ranges::sort(calls);
    EXPECT_EQ(calls, expected);
  }
}

TEST_F(EndToEnd, LosesNoRowWhenKilled) {
  Monitor& monitor = Install();
  Texts events, samples;
  const auto look = [&] {
    const Texts eventsBefore =
        std::exchange(events, monitor.Query("Event.mdb", "SELECT * FROM allevent ORDER BY rowid"));
    const Texts samplesBefore = std::exchange(samples, monitor.Samples());
    EXPECT_EQ(std::ranges::mismatch(eventsBefore, events).in1, eventsBefore.end());
    EXPECT_EQ(std::ranges::mismatch(samplesBefore, samples).in1, samplesBefore.end());
  };
  for (const int milliseconds : {40, 160, 280, 400}) {
    monitor.Launch();
    usleep(static_cast<useconds_t>(milliseconds) * 1000);
    monitor.Stop(SIGKILL);  // somewhere on its way up
    look();

    monitor.Start();
    const size_t known = samples.size();
    monitor.Await("a sample", [&] { return monitor.Samples().size() > known; });
    const auto end = Clock::now() + std::chrono::milliseconds(4 * milliseconds);
    for (; Clock::now() < end; usleep(10'000)) look();
    monitor.Stop(SIGKILL);
    look();
  }
  monitor.Start();
  EXPECT_FALSE(monitor.Says("Init Database Error!"));
  EXPECT_EQ(monitor.Stop(), 0);
  for (const char* file : {"Event.mdb", "data.mdb"}) {
    EXPECT_EQ(monitor.Query(file, "PRAGMA integrity_check"), Texts{"ok"}) << file;
  }
}

}  // namespace

}  // namespace varek::test
