// The simulator from outside: its terminal, its control commands, its log and its end.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <regex>

#include "platform/paths.h"
#include "support/monitor_fixture.h"
#include "support/serial_line.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using varek::test::PumpUntil;

/// One end of a line of texts.
class Peer {
 public:
  explicit Peer(int fd) : fd_(fd) {}
  Peer(Peer&&) = delete;
  ~Peer() { close(fd_); }

  void Send(const std::string& bytes) const {
    EXPECT_EQ(write(fd_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  /// What the next read gives; empty at the end, or when nothing comes in time.
  std::string Read(int milliseconds = 20'000) const {
    pollfd entry{fd_, POLLIN, 0};
    char buffer[4096];
    const ssize_t count = poll(&entry, 1, milliseconds) > 0 ? read(fd_, buffer, sizeof buffer) : 0;
    return std::string(buffer, count > 0 ? static_cast<size_t>(count) : 0);
  }
  std::string ReadUntil(char end) const {
    std::string text, more;
    while (!text.ends_with(end) && !(more = Read()).empty()) text += more;
    return text;
  }
  /// The answer, which ends with the same character as the question.
  std::string Ask(const std::string& bytes) const { return Send(bytes), ReadUntil(bytes.back()); }

 private:
  int fd_;
};

class Upssim : public testing::Test {
 protected:
  ~Upssim() override {
    if (process_ > 0) kill(process_, SIGKILL), ExitStatus();
  }

  /// Starts the program, whose standard streams all lead to `console_`.
  void Start(const std::vector<std::string>& more = {}) {
    std::vector<std::string> options{"upssim", "--link=" + link_, "--control",
                                     socket_,  "--log",           log_};
    options.insert(options.end(), more.begin(), more.end());
    std::vector<char*> arguments;
    for (std::string& option : options) arguments.push_back(option.data());
    arguments.push_back(nullptr);
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    process_ = fork();
    if (process_ == 0) {
      for (int stream : {0, 1, 2}) dup2(ends[1], stream);
      execv(UPSSIM_PATH, arguments.data());
      _exit(127);
    }
    close(ends[1]);
    console_.emplace(ends[0]);
    const std::string ready = console_->ReadUntil('\n');
    ASSERT_EQ(ready, "upssim: " + fs::read_symlink(link_).string() + " as " + link_ + "\n");
  }

  int ExitStatus() {
    int status = -1;
    waitpid(std::exchange(process_, 0), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  int OpenLink() const { return open(link_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC); }

  int Connect() const {
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = ""};
    socket_.copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    return fd;
  }

  varek::test::TemporaryFolder folder_;
  std::string link_ = folder_.Path() + "/dev/com1";
  std::string socket_ = folder_.Path() + "/run/control";
  std::string log_ = folder_.Path() + "/log/commands.log";
  pid_t process_ = 0;
  std::optional<Peer> console_;
};

const std::string kStatus = "(220.5 220.5 220.0 035 50.0 2.27 28.5 00000000\r";
const std::string kRating = "#220.0 004 24.00 50.0\r";

TEST_F(Upssim, AnswersOnTheTerminalAndLogsEveryCommandAtOnce) {
  Start({"--company", "ACME", "--model=M 1", "--unit-version", "QZ01"});
  EXPECT_EQ(Peer(OpenLink()).Ask("Q1\r"), kStatus);
  const Peer port(OpenLink());  // the terminal outlives who closes it
  EXPECT_EQ(port.Ask("I\r"), "#ACME            M 1        QZ01      \r");
  port.Send("\\\x07 x\xff\r\rQ");
  EXPECT_EQ(port.Ask("1\r"), kStatus);
  EXPECT_EQ(port.Ask(std::string(3000, 'F') + "F\rF\r"), kRating) << "not the endless command";
  EXPECT_EQ(port.Ask("Q1\r"), kStatus);
  const std::string log = platform::ReadWholeFile(log_);
  const std::regex time(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} )");
  EXPECT_EQ(std::regex_replace(log, time, ""), "Q1\nI\n\\\\\\x07 x\\xff\n\nQ1\nF\nQ1\n");
}

TEST_F(Upssim, ObeysControlCommands) {
  Start({"--type", "offline"});
  const Peer port(OpenLink()), one(Connect()), other(Connect());
  EXPECT_EQ(one.Ask("mains off\n"), "ok\n");
  EXPECT_EQ(other.Ask(" load  120\r\n"), "ok\n");
  EXPECT_EQ(console_->Ask("temp 60.5\n"), "ok\n");
  EXPECT_EQ(one.Ask("fault on\n"), "ok\n");
  EXPECT_EQ(one.Ask("batlow on\n"), "ok\n");
  EXPECT_EQ(other.Ask("battery 0\n"), "ok\n");
  EXPECT_EQ(port.Ask("Q1\r"), "(000.0 000.0 000.0 000 00.0 20.0 60.5 11011000\r");
  EXPECT_EQ(port.Ask("Q\rF\r"), kRating);
  EXPECT_EQ(other.Ask("state\n"),
            R"({"mains":false,"output":0,"load":120,"battery":0,"batteryVoltage":20,)"
            R"("temperature":60.5,"flags":"11011001","test":false,"testSeconds":0,)"
            R"("shutdown":false,"shutdownSeconds":0,"switchedOff":false,"restartSeconds":0,)"
            R"("shutdowns":0,"restarts":0,"beeper":true,"commands":3,"lastCommand":"F"})"
            "\n");
  for (const char* wrong :
       {"mains", "mains maybe", "load 1000", "load -1", "load 0x10", "load 1 2", "load nan",
        "temp 100", "split 1.5", "garble now", "batlow", "", "quit now", "Mains on", "\xff"}) {
    EXPECT_TRUE(other.Ask(wrong + "\n"s).starts_with("error: ")) << wrong;
  }
  EXPECT_TRUE(other.Ask(std::string(10000, 'a') + "\n").starts_with("error: ")) << "endless line";
}

TEST_F(Upssim, SpoilsRepliesOnDemandAndRunsFaster) {
  Start({"--speed", "600"});
  const Peer port(OpenLink());
  EXPECT_EQ(console_->Ask("garble\n"), "ok\n");
  EXPECT_EQ(port.Ask("F\r"), kRating);
  const std::string rubbish = port.Ask("Q1\r");
  EXPECT_TRUE(rubbish.find('\0') < rubbish.size() && rubbish.find('\xff') < rubbish.size());
  EXPECT_EQ(port.Ask("Q1\r"), kStatus);
  EXPECT_EQ(console_->Ask("split 9\n"), "ok\n");
  EXPECT_TRUE(PumpUntil([&] {  // A reader that is held up gets both pieces at once.
    port.Send("Q1\r");
    const std::string first = port.Read();
    EXPECT_EQ(first.size() == 9 ? first + port.ReadUntil('\r') : first, kStatus);
    return first.size() == 9;
  }));
  EXPECT_EQ(console_->Ask("silent on\n"), "ok\n");
  port.Send("Q1\rS01R0001\r");
  EXPECT_TRUE(PumpUntil(
      [&] { return console_->Ask("state\n").find(R"("restarts":1)") != std::string::npos; }));
  EXPECT_EQ(port.Read(0), "");
  EXPECT_EQ(console_->Ask("silent off\n"), "ok\n");
  EXPECT_TRUE(port.Ask("Q1\rF\r").starts_with(kStatus)) << "the rest of a reply is overtaken";
}

TEST_F(Upssim, EndsInOrderAndStartsOnlyWhenItCan) {
  const std::function<void()> ends[] = {
      [this] { EXPECT_EQ(Peer(Connect()).Ask("quit\n"), "ok\n"); },
      [this] { console_->Send("quit\n"); },
      [this] { kill(process_, SIGTERM); },
  };
  for (const auto& end : ends) {
    Start();
    EXPECT_EQ(fs::status(socket_).permissions() & fs::perms::others_all, fs::perms::none);
    end();
    EXPECT_EQ(ExitStatus(), 0);
    EXPECT_FALSE(fs::exists(fs::symlink_status(link_)) || fs::exists(socket_));
  }
  Start();
  kill(process_, SIGKILL), ExitStatus();
  Start();  // what a killed one left behind is no hindrance
  const std::pair<std::string, int> refused[] = {
      {"--speed 0", 2}, {"--x y", 2}, {"--link " + log_, 1}, {"--control " + socket_, 1}};
  for (const auto& [options, status] : refused) {
    const std::string command = "timeout 20 " UPSSIM_PATH " " + options + " 2> /dev/null";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), status) << options;
  }
}

}  // namespace
