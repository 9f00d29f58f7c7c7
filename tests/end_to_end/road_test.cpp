// A mains failure from the first event to the end with the real programs: the warning window, the
// mail, the text message, the save, and at last the shutdown of the system.

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <map>
#include <regex>

#include "end_to_end/monitor_process.h"

namespace varek::test {

namespace {

namespace fs = std::filesystem;

std::string Output(const std::string& shellLine) {
  FILE* shell = popen(shellLine.c_str(), "r");
  std::string text;
  for (int c = 0; (c = std::fgetc(shell)) != EOF;) text += static_cast<char>(c);
  pclose(shell);
  return text;
}

/// One of the Python servers, in a folder of its own; it ends with its standard input.
class Server {
 public:
  Server(Monitor& monitor, const std::string& script, const std::string& folder)
      : folder_(monitor.Path(folder)) {
    fs::create_directory(folder_);
    server_ = popen(("exec " PYTHON " -B " SERVERS "/" + script + " " + folder_).c_str(), "w");
    monitor.Await(script, [this] { return fs::exists(folder_ + "/port"); });
  }
  ~Server() { pclose(server_); }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;
  std::string Address() const { return "127.0.0.1:" + ReadFile(folder_ + "/port"); }

 private:
  std::string folder_;
  FILE* server_ = nullptr;
};

/// A session bus that takes calls and never answers one, as on a desktop that is breaking down.
class SilentBus {
 public:
  explicit SilentBus(const std::string& path) : socket_(socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(listen(socket_, 50), 0);
  }
  ~SilentBus() { close(socket_); }
  SilentBus(const SilentBus&) = delete;
  SilentBus& operator=(const SilentBus&) = delete;

 private:
  int socket_;
};

/// A display of its own for a monitor's programs.
class Screen {
 public:
  Screen(Monitor& monitor, const std::string& size)
      : server_("cd " + monitor.Path("") +
                " && exec Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 " + size +
                "x24 3>screen 2>/dev/null") {
    monitor.Await("a display", [&] { return ReadFile(monitor.Path("screen")).ends_with('\n'); });
    setting_ = "DISPLAY=:" + Split(ReadFile(monitor.Path("screen")), '\n')[0] + " ";
  }
  /// To be put before a command.
  const std::string& Setting() const { return setting_; }

 private:
  Process server_;
  std::string setting_;
};

struct Window {
  std::string program;
  int width, height, left, top;
  bool Covers(const Window& other) const {
    return left < other.left + other.width && other.left < left + width &&
           top < other.top + other.height && other.top < top + height;
  }
};

/// The windows on a screen, by their titles; those with the same one by their programs too.
std::map<std::string, Window> WindowsOn(const Screen& screen) {
  static const std::regex line(R"re("([^"]+)": \("(\w+)".*\)  (\d{3,})x(\d+)\+(-?\d+)\+(-?\d+))re");
  const std::string tree = Output(screen.Setting() + "xwininfo -root -tree 2>/dev/null");
  std::map<std::string, Window> windows;
  for (std::sregex_iterator found(tree.begin(), tree.end(), line), end; found != end; ++found) {
    const auto number = [&](size_t group) { return std::stoi((*found)[group]); };
    windows[(*found)[1].str() + " of " + (*found)[2].str()] = {(*found)[2], number(3), number(4),
                                                               number(5), number(6)};
  }
  return windows;
}

/// Messages of event 6, a save, and a minute to the system's shutdown.
Settings RoadSettings(const std::string& mailServer) {
  return {{10, "T"},
          {12, "FFFFFTFFFFFF"},
          {13, mailServer},
          {14, "Varek"},
          {15, "varek@test.invalid"},
          {16, "操作員"},
          {17, "op@test.invalid"},
          {24, "市電中斷 mains"},
          {31, "FFFFFTFFFFFF"},
          {32, " 0 "},
          {35, "886900000000"},
          {42, "断电 power"},
          {49, "1"},
          {50, "2"},
          {53, "TTFFT"}};
}

TEST_F(EndToEnd, AMainsFailureWarnsSavesAndThenShutsDown) {
  Monitor& monitor = Install();
  const Server mail(monitor, "mail_server.py", "mail");
  const Server sms(monitor, "sms_service.py", "sms");
  const Screen screen(monitor, "1280x1024");

  WriteFile(monitor.Path("config.qmz"), ConfigBytes(RoadSettings(mail.Address())));
  WriteFile(monitor.Path("SMSTO.conf"),
            "[0]\nname = loopback\nmethod = POST\naddress = http://" + sms.Address() +
                "/send\nparameter = to {number}\nparameter = text {text}\ngood = ^OK\n");
  WriteFile(monitor.Path("sms/reply-1"), "200\nOK");
  fs::create_directory(monitor.Path("autosave.d"));
  const std::string save = monitor.Path("autosave.d/10-save");
  WriteFile(save, "#!/bin/sh\necho saved >> '" + monitor.Path("saves") + "'\n");
  fs::permissions(save, fs::perms(0700));
  const SilentBus bus(monitor.Path("bus"));
  monitor.TakeRealSidecars(screen.Setting() + "DBUS_SESSION_BUS_ADDRESS=unix:path=" +
                           monitor.Path("bus") + " no_proxy=*");

  monitor.Launch();
  monitor.AwaitEvents({1, 3});
  EXPECT_EQ(monitor.LaunchAnother(), 0);
  const auto shows = [&](const std::string& program) {
    return std::ranges::any_of(WindowsOn(screen),
                               [&](const auto& named) { return named.second.program == program; });
  };
  monitor.Await("the dashboard", [&] { return shows("Varek"); });
  monitor.Order("mains off");
  monitor.Await("the warning", [&] { return shows("alert"); });
  const Texts signs{"mail/mail-1", "sms/requests", "saves"};
  for (const std::string& sign : signs) {
    monitor.Await(sign, [&] { return !ReadFile(monitor.Path(sign)).empty(); });
  }
  EXPECT_EQ(monitor.Shutdowns(), 0u) << "warned and saved well before";
  EXPECT_NE(ReadFile(monitor.Path("mail/mail-1")).find("Mains power failed"), std::string::npos);
  EXPECT_NE(ReadFile(monitor.Path("mail/mail-1")).find("市電中斷 mains"), std::string::npos);
  EXPECT_EQ(ReadFile(monitor.Path("sms/requests")),
            "POST /send\nto: 886900000000\ntext: 断电 power\n");

  monitor.Await("the shutdown", [&] { return monitor.Shutdowns() > 0; });
  monitor.AwaitOrders({"C", "S02"});
  monitor.AwaitEvents({1, 3, 6, 5, 9});
  EXPECT_EQ(ReadFile(monitor.Path("saves")), "saved\n") << "once a countdown";
  EXPECT_FALSE(fs::exists(monitor.Path("mail/mail-2")));
  EXPECT_EQ(monitor.Stop(), 0);
  EXPECT_EQ(monitor.Shutdowns(), 1u);
}

/// Beside the box that a start without databases leaves open.
TEST_F(EndToEnd, CountdownsWarningsAndABoxStandApartAndAMouseReachesEachCancel) {
  for (const char* size : {"1280x720", "1366x768", "1920x1080"}) {
    Monitor& monitor = Install({{49, "8"}, {50, "9"}, {53, "TTFFT"}});
    const Screen screen(monitor, size);
    fs::remove(monitor.Path("database/data.mdb"));
    monitor.TakeRealSidecars(screen.Setting() + "DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent ");
    monitor.Launch();
    monitor.Order("mains off");
    std::map<std::string, Window> windows;
    const auto expectApart = [&](int lines) {
      for (const auto& [title, window] : windows) {
        EXPECT_GE(std::min(window.left, window.top), 0) << size << " " << title;
        EXPECT_LE(window.left + window.width, std::stoi(size)) << size << " " << title;
        EXPECT_LE(window.top + window.height, std::stoi(std::strchr(size, 'x') + 1)) << title;
        for (const auto& [otherTitle, other] : windows)
          EXPECT_FALSE(title < otherTitle && window.Covers(other))
              << size << ", " << lines << " lines: " << title << " covers " << otherTitle;
      }
    };
    int height = 0;
    for (int lines = 1; lines <= 10; ++lines) {
      if (lines > 1)
        Output("cd " + monitor.Path("") + "; env -u QT_QPA_PLATFORM XDG_RUNTIME_DIR=$PWD/run " +
               screen.Setting() + "./alert UPSmore 2>/dev/null");
      monitor.Await("a line more", [&] {
        windows = WindowsOn(screen);
        return windows.size() == 4 && windows["Varek of alert"].height > height;
      });
      height = windows["Varek of alert"].height;
      expectApart(lines);
    }
    monitor.AwaitOrders({"C", "S09"});
    for (const char* title : {"UPS shutdown of Varek", "Computer shutdown of Varek"}) {
      const Window& window = windows[title];
      Output(screen.Setting() + "xdotool mousemove " +
             std::to_string(window.left + window.width / 2) + " " +
             std::to_string(window.top + window.height - 37) + " click 1");
      monitor.Await(title, [&] { return !WindowsOn(screen).contains(title); });
    }
    EXPECT_TRUE(WindowsOn(screen).contains("Varek of Varek")) << "the box";
    monitor.AwaitOrders({"C", "S09", "C"});
    EXPECT_EQ(monitor.Stop(), 0);
  }
}

}  // namespace

}  // namespace varek::test
