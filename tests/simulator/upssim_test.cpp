// The simulator from outside, by its standard streams; its terminal and its control socket serve
// the end-to-end tests.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>

#include "support/monitor_fixture.h"

namespace {

/// What a shell line writes and what its last command ends with.
std::pair<std::string, int> Shell(const std::string& shellLine) {
  FILE* shell = popen(shellLine.c_str(), "r");
  std::string text;
  for (int c = 0; (c = std::fgetc(shell)) != EOF;) text += static_cast<char>(c);
  return {text, WEXITSTATUS(pclose(shell))};
}

TEST(Upssim, ObeysItsConsoleEndsInOrderAndStartsOnlyWhenItCan) {
  const varek::test::TemporaryFolder folder;
  const std::string link = folder.Path() + "/com1", upssim = "timeout 20 " UPSSIM_PATH " --link ";
  std::filesystem::create_symlink("/dev/pts/left-by-a-killed-one", link);
  const auto [said, status] =
      Shell(R"(printf 'mains off\n load  120\r\ntemp 60.5\nfault on\nbatlow on\nbattery 0\nstate\n)"
            R"(mains\nmains maybe\nload 1000\nload -1\nload 1 2\nload nan\nsplit 1.5\ngarble now\n)"
            R"(\nMains on\n\377\nquit\n' | )" +
            upssim + link +
            " --type=offline | LC_ALL=C grep -c -x -e ok -e 'error: .*' -e '{\"mains\":false,"
            "\"output\":0,\"load\":120,\"battery\":0,\"batteryVoltage\":20,\"temperature\":60.5,"
            "\"flags\":\"11011000\",\"test\":false,.*\"commands\":0,\"lastCommand\":\"\"}'");
  EXPECT_EQ(said + std::to_string(status), "19\n0");
  EXPECT_FALSE(std::filesystem::is_symlink(link)) << "taken away at the end";
  EXPECT_EQ(Shell(upssim + link + " --speed 0 2>&1").second, 2);
  EXPECT_EQ(Shell(upssim + folder.Path() + " 2>&1").second, 1);
}

}  // namespace
