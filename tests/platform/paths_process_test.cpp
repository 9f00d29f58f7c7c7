// Names inside the program folder, files that are replaced whole, and programs that are started.

#include "platform/paths.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include "error_of.h"
#include "platform/process.h"
#include "platform/system.h"
#include "support/monitor_fixture.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using namespace std::string_literals;

class PathsTest : public testing::Test {
 protected:
  PathsTest() { SetProgramFolder(Folder()); }
  ~PathsTest() override { SetProgramFolder(before); }

  const std::string& Folder() const { return folder.Path(); }
  void Put(const std::string& name, const std::string& bytes = "", int mode = 0644) {
    const std::string path = Folder() + "/" + name;
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    fs::permissions(path, fs::perms(mode));
  }

  varek::test::TemporaryFolder folder;
  std::string before = ProgramFolder();
};

TEST_F(PathsTest, NamesAreFoundInAnyCaseAndNeverOutside) {
  Put("Database/EVENT.mdb");
  Put("image/ev1.jpg");
  Put("IMAGE/Ev1.jpg");
  const std::pair<const char*, const char*> cases[] = {
      {"\\database\\Event.mdb", "/Database/EVENT.mdb"},
      {"\\DATABASE\\new\\File.mdb", "/Database/new/File.mdb"},
      {"\\IMAGE\\Ev1.jpg", "/IMAGE/Ev1.jpg"},
      {".\\.\\\\image//ev1.jpg", "/image/ev1.jpg"},
      {"/etc/passwd", "/etc/passwd"},
      {"a..b\\...", "/a..b/..."},
      {"", ""},
  };
  for (const auto& [path, found] : cases) EXPECT_EQ(ProgramPath(path), Folder() + found) << path;
  for (const char* path : {"..", "\\..\\x", "image\\..\\..\\x", "image/../../x", "image\\.."}) {
    EXPECT_EQ(ErrorOf([&] { ProgramPath(path); }), errors::kPathNotFound) << path;
  }
}

TEST_F(PathsTest, FilesAreReadWholeAndReplacedForTheirOwnerAlone) {
  const std::string path = Folder() + "/config.qmz";
  const std::string bytes = "1\r\n\0\xff\n"s + std::string(300'000, 'x');
  Put("config.qmz", "old");
  const mode_t mask = umask(0);
  ReplaceFile(path, bytes);
  umask(mask);
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0600));
  EXPECT_TRUE(ReadWholeFile(path) == bytes);
  EXPECT_EQ(std::distance(fs::directory_iterator(Folder()), {}), 1);
  ReplaceFile(path, "");
  EXPECT_EQ(ReadWholeFile(path), "");

  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(path + "x"); }), errors::kFileNotFound);
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(Folder()); }), errors::kFileNotFound);
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile("/proc/self/mem"); }), errors::kPathAccess);
  EXPECT_EQ(ErrorOf([&] { ReplaceFile(Folder() + "/no/config.qmz", ""); }), errors::kPathAccess);
}

TEST_F(PathsTest, AWriteThatFailsHalfwayLeavesTheOldFile) {
  const std::string path = Folder() + "/config.qmz";
  ReplaceFile(path, "old");
  rlimit usual{};
  getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit small{4096, usual.rlim_max};
  const auto former = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const int error = ErrorOf([&] { ReplaceFile(path, std::string(10'000, 'x')); });
  setrlimit(RLIMIT_FSIZE, &usual);
  std::signal(SIGXFSZ, former);
  EXPECT_EQ(error, errors::kPathAccess);
  EXPECT_EQ(ReadWholeFile(path), "old");
  ReplaceFile(path, "new");
  EXPECT_EQ(ReadWholeFile(path), "new");
}

class ProcessTest : public PathsTest {
 protected:
  /// Makes a program that writes down beside itself how it was started.
  void PutProgram(const std::string& name) {
    Put(name,
        "#!/bin/sh\n"
        "printf '%s' \"$1\" > \"$0.argument\"\n"
        "{ echo $# $$ $(cut -d' ' -f6 /proc/$$/stat); grep -E 'Sig(Blk|Ign)' /proc/self/status; }"
        " > \"$0.part\"; mv \"$0.part\" \"$0.out\"\n",
        0755);
  }
  bool Appears(const std::string& name, bool present = true) {
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (fs::exists(name) != present) {
      if (std::chrono::steady_clock::now() > deadline) return false;
      std::this_thread::sleep_for(2ms);
    }
    return true;
  }
  /// What the program wrote when it was started.
  std::string Out(const std::string& name) {
    const std::string path = Folder() + "/" + name + ".out";
    if (!Appears(path)) return "";
    std::string text = ReadWholeFile(path);
    fs::remove(path);
    return text;
  }
  void Start(const std::string& name, const std::string& rest = "") {
    StartProgram(Folder() + "\\" + name, rest, WindowStyle::NormalFocus);
  }
};

TEST_F(ProcessTest, TheRestArrivesAsOneArgumentByteForByte) {
  PutProgram("alert");
  const std::string cases[] = {"[1][two words][\"quoted\" 'x' \\ $HOME `id` * ;|&]",
                               "line\r\nline\r\n\ttab",
                               "\xE6\x99\x82\xE9\x96\x93 \xFF\xFE\x80",
                               " blanks around ",
                               "-n",
                               std::string(100'000, 'x')};
  for (const std::string& rest : cases) {
    Start("alert.exe", rest);
    EXPECT_TRUE(Out("alert").starts_with("1 "));
    EXPECT_EQ(ReadWholeFile(Folder() + "/alert.argument"), rest);
  }
}

TEST_F(ProcessTest, ProgramsAreFoundWithAndWithoutTheirEnding) {
  PutProgram("sub folder/mailto");
  Start("sub folder\\mailto.EXE");
  EXPECT_TRUE(Out("sub folder/mailto").starts_with("0 "));  // No rest is no argument.
  PutProgram("both.exe");
  Put("both", "no program");
  Start("both.exe");
  EXPECT_NE(Out("both.exe"), "");

  fs::create_directories(Folder() + "/folder.exe");
  EXPECT_EQ(ErrorOf([&] { Start("missing.exe", "x"); }), errors::kFileNotFound);
  EXPECT_EQ(ErrorOf([&] { Start("folder.exe"); }), errors::kFileNotFound);
  Put("plain", "no program");
  EXPECT_EQ(ErrorOf([&] { Start("plain.exe"); }), errors::kPathAccess);
}

/// The monitor ignores and blocks signals for itself alone, and leaves no dead program behind.
TEST_F(ProcessTest, AProgramBeginsFreshAndEndsForGood) {
  PutProgram("fresh");
  sigset_t blocked, old;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGTERM);
  sigprocmask(SIG_BLOCK, &blocked, &old);
  const auto former = std::signal(SIGPIPE, SIG_IGN);
  Start("fresh");
  std::signal(SIGPIPE, former);
  sigprocmask(SIG_SETMASK, &old, nullptr);

  std::istringstream out(Out("fresh"));
  std::string count, process, session, name, mask;
  out >> count >> process >> session;
  EXPECT_EQ(session, process);  // A Ctrl-C for the monitor does not reach it.
  // The C library keeps two signals behind the common ones for itself.
  while (out >> name >> mask) EXPECT_EQ(std::stoull(mask, nullptr, 16) & 0x7FFFFFFF, 0U) << name;
  EXPECT_EQ(name, "SigIgn:");
  EXPECT_TRUE(Appears("/proc/" + process, false));
}

TEST_F(ProcessTest, TheShutdownIsTheCommandLineOfTheEnvironment) {
  const std::string made = Folder() + "/shut down";
  setenv("VAREK_SHUTDOWN_COMMAND", ("> '" + made + "' && exit 3").c_str(), 1);
  ShutDownSystem();
  setenv("VAREK_SHUTDOWN_COMMAND", "true", 1);
  EXPECT_TRUE(Appears(made));
}

}  // namespace
}  // namespace platform
