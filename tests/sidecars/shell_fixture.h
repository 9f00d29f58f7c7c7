// The small programs that the monitor starts, in a folder of their own, driven by shell lines: they
// are processes that come and go, and meet on a display.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/monitor_fixture.h"

namespace varek::test {

class ShellTest : public testing::Test {
 protected:
  ShellTest();

  /// Runs `lines` in the folder, in which the programs stand; what they write, standard error too.
  /// They can use `display` (starts one, which goes when the lines end), `await CONDITION` (until
  /// that command succeeds; ends the lines when it never does), `windows` (how many the programs
  /// have), `height` (of the window, in pixels) and `job NAME LINES` (makes an executable file in
  /// autosave.d).
  std::string Run(const std::string& lines) const;

 private:
  TemporaryFolder folder_;
};

}  // namespace varek::test
