// What the tests of the modules stand on: a program folder in a temporary place with the real
// initial databases, start values everywhere, a clock that stands still, and nothing that could
// reach the machine. Programs, message boxes and the end of the process are written down instead.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "support/fake_clock.h"

namespace varek::test {

/// A folder below the system's temporary one; gone with the object.
class TemporaryFolder final {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

/// Gives `folder` the initial databases in place of those that it has.
void InstallDatabases(const std::string& folder);

/// Gives `folder` the pictures of the program.
void InstallPictures(const std::string& folder);

struct StartedProgram {
  std::string name;  ///< without its folder, "alert.exe"
  std::string rest;
};

/// What a countdown shows, and its cancel button.
struct ShownCountdown {
  std::string time;
  std::function<void()> cancel;
};

/// What EndProcess throws in tests; no guard catches it.
struct ProcessEnded {
  int status;
};

/// Catches what goes to the journal, from its making on.
class Journal final {
 public:
  Journal();
  ~Journal();
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;
  std::string Take();

 private:
  bool taken_ = false;
};

class MonitorTest : public testing::Test {
 protected:
  MonitorTest();
  ~MonitorTest() override;

  const std::string& Folder() const { return folder_.Path(); }

  /// The programs started so far that have this name.
  std::vector<StartedProgram> Started(const std::string& name) const;

  /// `type` of every row of allevent in order, read through a connection of its own.
  std::vector<int> EventRows() const;

  FakeClock clock{{2026, 3, 10, 12, 0, 0}};
  std::vector<StartedProgram> started;
  std::array<ShownCountdown, 2> countdowns;  ///< by place: of the system, of the UPS
  std::vector<std::string> messages;         ///< texts of the message boxes
  /// While set, starting any program fails as if it were missing.
  bool programsMissing = false;
  std::string missingProgram;  ///< the same for one of them, "alert.exe"

 private:
  TemporaryFolder folder_;
};

}  // namespace varek::test
