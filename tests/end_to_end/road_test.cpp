// The whole road of a mains failure with the real programs: the warning window, the mail, the text
// message, the save, and at last the shutdown of the system.

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>

#include "end_to_end/monitor_process.h"

namespace varek::test {

namespace {

namespace fs = std::filesystem;

/// What a shell line writes.
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

std::string GatewayText(const std::string& address) {
  return "[0]\nname = loopback\nmethod = POST\naddress = http://" + address +
         "/send\nparameter = to {number}\nparameter = text {text}\ngood = ^OK\n";
}

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
  const Process screen("cd " + monitor.Path("") +
                       " && exec Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 1280x1024x24 "
                       "3>screen 2>/dev/null");
  monitor.Await("a display", [&] { return ReadFile(monitor.Path("screen")).ends_with('\n'); });
  const std::string display = "DISPLAY=:" + Split(ReadFile(monitor.Path("screen")), '\n')[0];

  WriteFile(monitor.Path("config.qmz"), ConfigBytes(RoadSettings(mail.Address())));
  WriteFile(monitor.Path("SMSTO.conf"), GatewayText(sms.Address()));
  WriteFile(monitor.Path("sms/reply-1"), "200\nOK");
  fs::create_directory(monitor.Path("autosave.d"));
  const std::string save = monitor.Path("autosave.d/10-save");
  WriteFile(save, "#!/bin/sh\necho saved >> '" + monitor.Path("saves") + "'\n");
  fs::permissions(save, fs::perms(0700));
  const SilentBus bus(monitor.Path("bus"));
  monitor.TakeRealSidecars(display + " DBUS_SESSION_BUS_ADDRESS=unix:path=" + monitor.Path("bus") +
                           " no_proxy=*");

  monitor.Launch();
  monitor.AwaitEvents({1, 3});
  const std::string windows = display + " xwininfo -root -tree 2>/dev/null";
  EXPECT_EQ(monitor.LaunchAnother(), 0);
  monitor.Await("the dashboard",
                [&] { return Output(windows).find("(\"Varek\"") != std::string::npos; });
  monitor.Order("mains off");
  monitor.Await("the warning",
                [&] { return Output(windows).find("(\"alert\"") != std::string::npos; });
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

}  // namespace

}  // namespace varek::test
