// The simulator from outside: its terminal, its control commands, its log and its end.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto kPatience = 20s;

/// A descriptor from which texts are awaited.
class Peer {
 public:
  explicit Peer(int fd) : fd_(fd) {}
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;
  ~Peer() { close(fd_); }

  int Fd() const { return fd_; }
  void Send(const std::string& bytes) const {
    EXPECT_EQ(write(fd_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  /// What the next read gives; empty at the end, or when nothing comes for `wait`.
  std::string Read(std::chrono::milliseconds wait = kPatience) const {
    pollfd entry{fd_, POLLIN, 0};
    if (poll(&entry, 1, static_cast<int>(wait.count())) <= 0) return "";
    char buffer[4096];
    const ssize_t count = read(fd_, buffer, sizeof buffer);
    return std::string(buffer, count > 0 ? static_cast<size_t>(count) : 0);
  }
  std::string ReadUntil(char terminator) const {
    std::string text;
    while (!text.ends_with(terminator)) {
      const std::string more = Read();
      if (more.empty()) break;
      text += more;
    }
    return text;
  }
  std::string Ask(const std::string& command) const {
    return Send(command + "\r"), ReadUntil('\r');
  }
  std::string Order(const std::string& line) const { return Send(line + "\n"), ReadUntil('\n'); }

 private:
  int fd_;
};

class Upssim : public testing::Test {
 protected:
  Upssim() {
    std::signal(SIGPIPE, SIG_IGN);
    std::string name = (fs::temp_directory_path() / "upssim-XXXXXX").string();
    folder_ = mkdtemp(name.data());
  }
  ~Upssim() override {
    if (process_ > 0) kill(process_, SIGKILL), waitpid(process_, nullptr, 0);
    fs::remove_all(folder_);
  }

  std::string Link() const { return folder_ / "dev" / "com1"; }
  std::string Socket() const { return folder_ / "run" / "control"; }
  std::string Log() const { return folder_ / "log" / "commands.log"; }

  /// Starts the program; its error output goes where its standard output goes.
  void Spawn(const std::vector<std::string>& options) {
    int in[2], out[2];
    ASSERT_EQ(pipe2(in, O_CLOEXEC) | pipe2(out, O_CLOEXEC), 0);
    process_ = fork();
    if (process_ == 0) {
      dup2(in[0], 0), dup2(out[1], 1), dup2(out[1], 2);
      std::vector<char*> arguments{const_cast<char*>(UPSSIM_PATH)};
      for (const auto& option : options) arguments.push_back(const_cast<char*>(option.c_str()));
      arguments.push_back(nullptr);
      execv(UPSSIM_PATH, arguments.data());
      _exit(127);
    }
    close(in[0]), close(out[1]);
    input_.emplace(in[1]);
    output_.emplace(out[0]);
  }

  void Start(const std::vector<std::string>& more = {}) {
    std::vector<std::string> options{"--link", Link(), "--control=" + Socket(), "--log", Log()};
    options.insert(options.end(), more.begin(), more.end());
    Spawn(options);
    const std::string ready = output_->ReadUntil('\n');
    ASSERT_EQ(ready, "upssim: " + fs::read_symlink(Link()).string() + " as " + Link() + "\n");
  }

  int ExitStatus() {
    int status = -1;
    waitpid(std::exchange(process_, 0), &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  int OpenLink() const { return open(Link().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC); }

  int Connect() const {
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    Socket().copy(address.sun_path, sizeof address.sun_path - 1);
    EXPECT_EQ(connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    return fd;
  }

  static void Await(const char* what, const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
      ASSERT_LT(std::chrono::steady_clock::now(), end) << what;
      usleep(5000);
    }
  }

  void AwaitState(const Peer& control, const std::string& member) {
    Await(member.c_str(), [&] { return control.Order("state").find(member) != std::string::npos; });
  }

  fs::path folder_;
  pid_t process_ = 0;
  std::optional<Peer> input_;
  std::optional<Peer> output_;
};

const std::string kStatus = "(220.5 220.5 220.0 035 50.0 2.27 28.5 00000000\r";
const std::string kRating = "#220.0 004 24.00 50.0\r";

TEST_F(Upssim, AnswersOnTheTerminal) {
  fs::create_directories(fs::path(Link()).parent_path());
  fs::create_symlink("/nowhere", Link());  // left by an older run
  Start({"--company", "ACME", "--model=M 1", "--unit-version", "QZ01"});
  {
    const Peer port(OpenLink());
    EXPECT_EQ(port.Ask("Q1"), kStatus);
    EXPECT_EQ(port.Ask("F"), kRating);
    EXPECT_EQ(port.Ask("I"), "#ACME            M 1        QZ01      \r");
    port.Send("Q");
    port.Send("1\rF");
    EXPECT_EQ(port.ReadUntil('\r'), kStatus);
    EXPECT_EQ(port.Ask(""), kRating);
    port.Send(std::string(3000, 'F') + "F\rF\r");
    EXPECT_EQ(port.ReadUntil('\r'), kRating) << "only what follows an endless command counts";
    EXPECT_EQ(port.Ask("nonsense\rQ1"), kStatus);
  }
  EXPECT_EQ(Peer(OpenLink()).Ask("Q1"), kStatus) << "the terminal outlives who closes it";
}

TEST_F(Upssim, EndsAnExclusiveHoldWithItsHolder) {
  Start();
  {
    const Peer holder(OpenLink());
    EXPECT_EQ(holder.Ask("Q1"), kStatus);
    EXPECT_EQ(ioctl(holder.Fd(), TIOCEXCL), 0);
  }
  Await("end of the exclusive hold", [&] {  // which does not keep root out
    const Peer next(OpenLink());
    int exclusive = 1;
    return next.Fd() >= 0 && ioctl(next.Fd(), TIOCGEXCL, &exclusive) == 0 && !exclusive;
  });
}

TEST_F(Upssim, LogsEveryCommandAtOnce) {
  Start();
  const Peer port(OpenLink());
  port.Send("T\rS02R0003\r\\\x07 x\xff\r\r");
  EXPECT_EQ(port.Ask("F"), kRating);
  std::ostringstream log;
  log << std::ifstream(Log()).rdbuf();
  const std::string time = R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} )";
  const std::regex expected(time + "T\n" + time + "S02R0003\n" + time + R"(\\\\\\x07 x\\xff)" +
                            "\n" + time + "\n" + time + "F\n");
  EXPECT_TRUE(std::regex_match(log.str(), expected)) << log.str();
}

TEST_F(Upssim, ObeysControlCommands) {
  Start({"--type", "offline"});
  const Peer port(OpenLink());
  const Peer one(Connect());
  const Peer other(Connect());
  EXPECT_EQ(one.Order("mains off"), "ok\n");
  EXPECT_EQ(other.Order(" load  120\r"), "ok\n");
  input_->Send("temp 60.5\n");
  EXPECT_EQ(output_->ReadUntil('\n'), "ok\n");
  one.Send("fault on\nbatlow ");
  EXPECT_EQ(one.ReadUntil('\n'), "ok\n");
  EXPECT_EQ(one.Order("on"), "ok\n");
  EXPECT_EQ(other.Order("battery 0"), "ok\n");
  EXPECT_EQ(port.Ask("Q1"), "(000.0 000.0 000.0 000 00.0 20.0 60.5 11011000\r");

  for (const char* wrong : {"mains", "mains maybe", "load 1000", "load -1", "load x", "load 1 2",
                            "load nan", "load 0x10", "temp 100", "split 1.5", "garble now",
                            "batlow", "", "quit now", "Mains on", "\xff"}) {
    EXPECT_TRUE(other.Order(wrong).starts_with("error: ")) << wrong;
  }
  EXPECT_TRUE(other.Order(std::string(10000, 'a')).starts_with("error: ")) << "endless line";
  EXPECT_TRUE(other.Order("state").starts_with(R"({"mains":false,"output":0,"load":120,)"));

  input_.reset();  // the end of standard input ends nothing
  EXPECT_EQ(one.Order("mains on"), "ok\n");
  EXPECT_EQ(port.Ask("F"), kRating);
}

TEST_F(Upssim, SpoilsRepliesOnDemand) {
  Start();
  const Peer port(OpenLink());
  const Peer control(Connect());
  EXPECT_EQ(control.Order("garble"), "ok\n");
  EXPECT_EQ(port.Ask("F"), kRating);
  const std::string rubbish = port.Ask("Q1");
  EXPECT_NE(rubbish.find('\0'), std::string::npos);
  EXPECT_NE(rubbish.find('\xff'), std::string::npos);
  EXPECT_EQ(rubbish.find('\r'), rubbish.size() - 1);
  EXPECT_EQ(port.Ask("Q1"), kStatus);

  EXPECT_EQ(control.Order("split 9"), "ok\n");
  Await("a reply in two pieces", [&] {  // a reader that is held up gets both at once
    port.Send("Q1\r");
    const std::string first = port.Read();
    EXPECT_EQ(first.size() == 9 ? first + port.ReadUntil('\r') : first, kStatus);
    return first.size() == 9;
  });
  port.Send("Q1\rF\r");  // the second does not overtake the rest of the first
  std::string both = port.ReadUntil('\r');
  if (both == kStatus) both += port.ReadUntil('\r');
  EXPECT_EQ(both, kStatus + kRating);
  EXPECT_EQ(control.Order("split 0"), "ok\n");

  EXPECT_EQ(control.Order("silent on"), "ok\n");
  port.Send("Q\rQ1\r");
  AwaitState(control, R"("lastCommand":"Q1")");
  EXPECT_EQ(port.Read(0ms), "");
  EXPECT_EQ(control.Order("silent off"), "ok\n");
  EXPECT_EQ(port.Ask("F"), kRating);
  EXPECT_EQ(port.Ask("Q1").substr(38), "00000001\r") << "it was obeyed in silence";
}

TEST_F(Upssim, RunsItsTimeFaster) {
  Start({"--speed", "600", "--charge=1"});
  const Peer port(OpenLink());
  const Peer control(Connect());
  port.Send("S01R0001\r");
  AwaitState(control, R"("shutdowns":1,"restarts":1)");
  control.Order("battery 1");
  AwaitState(control, R"("battery":100,)");
}

TEST_F(Upssim, EndsInOrder) {
  const std::function<void()> ends[] = {
      [this] { EXPECT_EQ(Peer(Connect()).Order("quit"), "ok\n"); },
      [this] { input_->Send("quit\n"); },
      [this] { kill(process_, SIGTERM); },
      [this] { kill(process_, SIGINT); },
  };
  for (const auto& end : ends) {
    Start();
    EXPECT_TRUE(fs::is_socket(Socket()));
    EXPECT_EQ(fs::status(Socket()).permissions() & fs::perms::others_all, fs::perms::none);
    end();
    EXPECT_EQ(ExitStatus(), 0);
    EXPECT_FALSE(fs::exists(fs::symlink_status(Link())));
    EXPECT_FALSE(fs::exists(Socket()));
  }
  Start();
  fs::remove(Link());
  fs::create_symlink("/elsewhere", Link());
  kill(process_, SIGTERM);
  EXPECT_EQ(ExitStatus(), 0);
  EXPECT_TRUE(fs::is_symlink(Link())) << "another one's link stays";

  Start();
  kill(process_, SIGKILL);
  EXPECT_EQ(ExitStatus(), -1);
  Start();  // what a killed one left behind is no hindrance
}

TEST_F(Upssim, RefusesWhatItCannotDo) {
  const std::string file = folder_ / "file";
  std::ofstream(file) << "precious";
  Start();
  const pid_t first = process_;
  const struct {
    std::vector<std::string> options;
    int status;
    const char* says;
  } cases[] = {
      {{"--help"}, 0, "--rated-voltage"},
      {{"--speed", "0"}, 2, "0.01..10000"},
      {{"--speed", "fast"}, 2, "--speed does not take 'fast'"},
      {{"--type", "both"}, 2, "online|offline"},
      {{"--company", "more than fifteen"}, 2, "at most 15"},
      {{"--model", "A\rB"}, 2, "--model"},
      {{"--runtime"}, 2, "--runtime needs a value"},
      {{"--link="}, 2, "--link"},
      {{"--help=x"}, 2, "--help takes no value"},
      {{"--bogus", "x"}, 2, "unknown option '--bogus'"},
      {{"--link", file}, 1, "is no link"},
      {{"--log", file + "/log"}, 1, "file"},
      {{"--control", Socket()}, 1, "in use"},
      {{"--control", file}, 1, "in use"},
      {{"--control", "/tmp/" + std::string(120, 'x')}, 1, "too long"},
  };
  for (const auto& c : cases) {
    Spawn(c.options);
    std::string said;
    for (std::string more = output_->Read(); !more.empty(); more = output_->Read()) said += more;
    EXPECT_EQ(ExitStatus(), c.status) << said;
    EXPECT_NE(said.find(c.says), std::string::npos) << said;
  }
  process_ = first;
  EXPECT_EQ(fs::file_size(file), 8u);
  EXPECT_EQ(Peer(OpenLink()).Ask("Q1"), kStatus) << "the first goes on";
}

}  // namespace
