#include "end_to_end/monitor_process.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace varek::test {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

namespace {

constexpr std::chrono::seconds kPatience{120};
constexpr useconds_t kLookAgain = 10'000;
constexpr size_t kLogTimeWidth = sizeof "2026-03-10 12:00:00.000";
constexpr int kReaderWaits = 10'000;

/// The sidecar that is started last when the monitor comes up.
constexpr char kUpSign[] = "ShowAutoSave";

constexpr char kSimulator[] =
    "exec " UPSSIM
    " --link $PWD/dev/com1 --control $PWD/control --log $PWD/log </dev/null >simulator 2>&1";

/// That there is no display the program has to find out by itself.
constexpr char kEnvironment[] =
    "exec env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u JOURNAL_STREAM LC_ALL=C.UTF-8 "
    "VAREK_COM_DIR=$PWD/dev VAREK_ROOT=$PWD/root XDG_RUNTIME_DIR=$PWD/run "
    "PATH=$PWD/bin:$PATH VAREK_SHUTDOWN_COMMAND=\"echo down >> $PWD/shutdowns\" ";
constexpr char kProgram[] = " $PWD/Varek </dev/null ";

constexpr const char* kSidecars[] = {"/alert", "/mailto", "/SMSTO", "/Autosave", "/ShowAutoSave"};

void InstallProgram(const std::string& folder) {
  fs::copy_file(PROGRAM_FOLDER "/Varek", folder + "/Varek");
  for (const char* name : kSidecars) fs::copy_file(SIDECAR_STAND_IN, folder + name);
  fs::copy(PROGRAM_FOLDER "/image", folder + "/image");
  for (const char* name : {"/dev", "/root", "/run", "/bin"}) fs::create_directory(folder + name);
  fs::create_symlink(SIDECAR_STAND_IN, folder + "/bin/systemctl");
  fs::permissions(folder + "/run", fs::perms::owner_all);
}

Texts WithoutQuestions(Texts commands) {
  for (const char* question : {"Q1", "F", "I"}) std::erase(commands, question);
  return commands;
}

}  // namespace

Process::Process(const std::string& shellLine) : process_(fork()) {
  if (process_ < 0) throw std::runtime_error("fork");
  if (process_ > 0) return;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  execl("/bin/sh", "sh", "-c", shellLine.c_str(), nullptr);
  _exit(127);
}

Process::~Process() {
  if (Status()) return;
  Signal(SIGKILL);
  waitpid(process_, nullptr, 0);
}

std::optional<int> Process::Status() {
  int status = 0;
  if (!status_ && waitpid(process_, &status, WNOHANG) == process_) {
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  return status_;
}

Monitor::Monitor(const Settings& settings) {
  InstallProgram(folder_.Path());
  InstallDatabases(folder_.Path());
  WriteFile(Path("config.qmz"), ConfigBytes(settings));
  simulator_.emplace("cd " + folder_.Path() + " && " + kSimulator);
  ConnectControl();
}

Monitor::~Monitor() {
  KillAll();
  close(control_);
}

void Monitor::KillAll() {
  program_.reset();
  simulator_.reset();
}

void Monitor::ConnectControl() {
  control_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  Path("control").copy(address.sun_path, sizeof address.sun_path - 1);
  Await("the control socket", [&] {
    return connect(control_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  });
}

std::string Monitor::ShellLine(const std::string& rest) const {
  return "cd " + folder_.Path() + " && " + kEnvironment + environment_ + kProgram + rest;
}

void Monitor::TakeRealSidecars(const std::string& environment) {
  environment_ = environment;
  for (const char* name : kSidecars) {
    fs::remove(folder_.Path() + name);
    fs::copy_file(PROGRAM_FOLDER + std::string(name), folder_.Path() + name);
  }
}

void Monitor::EndWithTheSystem() {
  // The shell's number is the program's: the shell becomes it.
  environment_ = R"(VAREK_SHUTDOWN_COMMAND="echo down >> $PWD/shutdowns; kill $$")";
}

void Monitor::Launch(const std::string& arguments) {
  program_.emplace(ShellLine("2>errors " + arguments));
}

int Monitor::LaunchAnother(const std::string& arguments) {
  Process another(ShellLine(">another 2>&1 " + arguments));
  Await("the end of the other copy", [&] { return another.Status().has_value(); });
  return *another.Status();
}

void Monitor::Start() {
  const auto starts = [this] { return std::ranges::count(Calls(), Texts{kUpSign}); };
  const auto before = starts();
  Launch();
  Await("the start", [&] { return starts() > before; });
}

int Monitor::AwaitEnd() {
  Await("the end", [this] { return program_->Status().has_value(); });
  const int status = *program_->Status();
  program_.reset();
  return status;
}

int Monitor::Stop(int signal) {
  program_->Signal(signal);
  return AwaitEnd();
}

std::string Monitor::Order(const std::string& command) const {
  const std::string line = command + "\n";
  send(control_, line.data(), line.size(), MSG_NOSIGNAL);
  std::string answer;
  for (char byte = 0; byte != '\n'; answer += byte) {
    if (recv(control_, &byte, 1, 0) != 1) throw std::runtime_error("no answer to " + command);
  }
  EXPECT_FALSE(answer.starts_with("error")) << answer;
  return answer;
}

void Monitor::Await(const std::string& what, const std::function<bool()>& condition) {
  const auto deadline = Clock::now() + kPatience;
  for (;; usleep(kLookAgain)) {
    const bool lastLook = Clock::now() > deadline || (program_ && program_->Status());
    if (condition()) return;
    if (lastLook) throw std::runtime_error("no sight of " + what + Account());
  }
}

void Monitor::AwaitEventCount(size_t count) {
  Await("event " + std::to_string(count), [&] { return Events().size() >= count; });
}

void Monitor::AwaitEvents(const std::vector<int>& types) {
  AwaitEventCount(types.size());
  EXPECT_EQ(Events(), types);
}

void Monitor::AwaitOrders(const Texts& commands) {
  Await("commands", [&] { return WithoutQuestions(Commands()).size() >= commands.size(); });
  EXPECT_EQ(WithoutQuestions(Commands()), commands);
}

std::string Monitor::Account() const {
  std::string text = "\nstandard error:\n" + ReadFile(Path("errors")) + "\ncommands:";
  for (const std::string& command : Commands()) text += " " + command;
  text += "\nsidecars:";
  for (const Texts& call : Calls()) text += " " + call[0];
  return text;
}

bool Monitor::Says(const std::string& text) const {
  return ReadFile(Path("errors")).find(text) != std::string::npos;
}

Texts Monitor::Commands() const {
  Texts commands = Split(ReadFile(Path("log")), '\n');
  for (std::string& line : commands) line.erase(0, kLogTimeWidth);
  return commands;
}

std::vector<Texts> Monitor::Calls() const {
  std::vector<Texts> calls;
  for (const std::string& call : Split(ReadFile(Path("calls")), '\x1e')) {
    calls.push_back(Split(call, '\0'));
  }
  return calls;
}

size_t Monitor::Shutdowns() const { return Split(ReadFile(Path("shutdowns")), '\n').size(); }

std::vector<int> Monitor::Events() const {
  std::vector<int> types;
  for (const std::string& row : Query("Event.mdb", "SELECT type FROM allevent ORDER BY rowid")) {
    types.push_back(std::stoi(row));
  }
  return types;
}

Texts Monitor::Samples() const {
  Texts samples;
  for (const std::string& table :
       Query("data.mdb", "SELECT name FROM sqlite_master WHERE type='table' ORDER BY name")) {
    std::ranges::copy(Query("data.mdb", "SELECT * FROM \"" + table + "\""),
                      std::back_inserter(samples));
  }
  return samples;
}

Texts Monitor::Query(const std::string& database, const std::string& query) const {
  const SQLite::Database reader(Path("database/" + database), SQLite::OPEN_READONLY, kReaderWaits);
  SQLite::Statement statement(reader, query);
  Texts rows;
  while (statement.executeStep()) {
    std::string row;
    for (int i = 0; i < statement.getColumnCount(); ++i) {
      row += (i ? "|" : "") + statement.getColumn(i).getString();
    }
    rows.push_back(row);
  }
  return rows;
}

/// What a monitor leaves running becomes a child of the test, so that it can be awaited: a sidecar
/// that still writes would hold its folder back.
EndToEnd::EndToEnd() { prctl(PR_SET_CHILD_SUBREAPER, 1); }

EndToEnd::~EndToEnd() {
  for (Monitor& monitor : monitors) monitor.KillAll();
  while (waitpid(-1, nullptr, 0) > 0) {
  }
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

Texts Split(const std::string& text, char end) {
  Texts parts;
  size_t from = 0;
  for (size_t at; (at = text.find(end, from)) != std::string::npos; from = at + 1) {
    parts.push_back(text.substr(from, at - from));
  }
  return parts;
}

std::string ConfigBytes(const Settings& settings) {
  Texts lines = Split(ReadFile(ASSETS "/config.qmz"), '\n');
  for (const auto& [line, text] : Settings{{1, "F"}, {2, "1"}, {7, "F"}}) lines[line - 1] = text;
  for (const auto& [line, text] : settings) lines.at(line - 1) = text;
  std::string bytes;
  for (const std::string& line : lines) bytes += line + "\n";
  return bytes;
}

}  // namespace varek::test
