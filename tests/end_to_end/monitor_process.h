// The monitor from outside: an installation of its own in a temporary place, with a simulated UPS
// on its COM1 and stand-ins for its sidecars. Nothing in it can reach the machine.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <csignal>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/monitor_fixture.h"

namespace varek::test {

using Texts = std::vector<std::string>;

/// What differs from the initial settings, by the number of the line.
using Settings = std::map<size_t, std::string>;

/// A started program; killed with the object, and with the test program however that ends.
class Process final {
 public:
  explicit Process(const std::string& shellLine);
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void Signal(int signal) const { kill(process_, signal); }
  /// Nothing while it runs; -1 when a signal ended it.
  std::optional<int> Status();

 private:
  pid_t process_;
  std::optional<int> status_;
};

/// One installation, on serial port 1 and without web console unless told otherwise, and its UPS.
/// What is awaited in vain ends the test with an exception that describes the state of things.
class Monitor final {
 public:
  explicit Monitor(const Settings& settings);
  ~Monitor();
  Monitor(const Monitor&) = delete;
  Monitor& operator=(const Monitor&) = delete;

  /// Puts the real programs in the place of the stand-ins; the program is then started with
  /// `environment` ("NAME=VALUE") too.
  void TakeRealSidecars(const std::string& environment);
  /// From now on the program is started by way of `command`, for example as another account.
  void StartBy(const std::string& command) { environment_ = command; }
  /// From the next start on, the system's shutdown ends the program too, as the real one does.
  void EndWithTheSystem();
  /// Starts the program and waits for nothing.
  void Launch(const std::string& arguments = "");
  /// Runs a second copy to its end; its exit status. What it says is then in the file "another".
  int LaunchAnother(const std::string& arguments = "");
  /// Starts the program and waits until its databases are open and its first event is written.
  void Start();
  int AwaitEnd();
  int Stop(int signal = SIGTERM);
  /// Kills the program and the UPS.
  void KillAll();
  /// Gives the UPS a control command; the answer.
  std::string Order(const std::string& command) const;

  /// In vain also when the program ends.
  void Await(const std::string& what, const std::function<bool()>& condition);
  void AwaitEventCount(size_t count);
  /// Waits until there are as many and fails when they are others.
  void AwaitEvents(const std::vector<int>& types);
  /// The same for the commands to the UPS that are no questions.
  void AwaitOrders(const Texts& commands);

  std::string Path(const std::string& name) const { return folder_.Path() + "/" + name; }
  /// Whether the last start wrote the text to standard error.
  bool Says(const std::string& text) const;
  /// All commands that the UPS was given.
  Texts Commands() const;
  /// Each call of a sidecar or of the service manager's command: its name, then its arguments.
  std::vector<Texts> Calls() const;
  /// How often the system was shut down.
  size_t Shutdowns() const;
  std::vector<int> Events() const;
  /// The samples of all days in their order.
  Texts Samples() const;
  /// What a query gives on a connection of its own, fields separated by "|".
  Texts Query(const std::string& database, const std::string& query) const;

 private:
  std::string ShellLine(const std::string& rest) const;
  void ConnectControl();
  std::string Account() const;

  TemporaryFolder folder_;
  std::string environment_;
  std::optional<Process> simulator_;
  std::optional<Process> program_;
  int control_ = -1;
};

class EndToEnd : public testing::Test {
 protected:
  EndToEnd();
  ~EndToEnd() override;
  Monitor& Install(const Settings& settings = {}) { return monitors.emplace_back(settings); }

  std::deque<Monitor> monitors;
};

std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& bytes);
/// The parts of `text` that `end` ends.
Texts Split(const std::string& text, char end);
std::string ConfigBytes(const Settings& settings);

}  // namespace varek::test
