// The machine below: files, programs that are started, the serial port on pseudo-terminals.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <optional>

#include "error_of.h"
#include "platform/errors/runtime_error.h"
#include "platform/ports/serial_port.h"
#include "platform/system/paths.h"
#include "platform/system/process.h"
#include "platform/system/service.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "support/monitor_fixture.h"
#include "support/serial_line.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using varek::test::PumpUntil;

class MachineTest : public testing::Test {
 protected:
  MachineTest() { SetProgramFolder(folder.Path()); }

  std::string Path(const std::string& name) const { return folder.Path() + "/" + name; }
  void Put(const std::string& name, const std::string& bytes = "", int mode = 0644) const {
    fs::create_directories(fs::path(Path(name)).parent_path());
    std::ofstream(Path(name), std::ios::binary) << bytes;
    fs::permissions(Path(name), fs::perms(mode));
  }

  varek::test::TemporaryFolder folder;
};

TEST_F(MachineTest, NamesAreFoundInAnyCaseAndNeverOutside) {
  for (const char* name : {"Database/EVENT.mdb", "image/ev1.jpg", "IMAGE/Ev1.jpg"}) Put(name);
  const std::pair<const char*, const char*> cases[] = {
      {"\\database\\Event.mdb", "Database/EVENT.mdb"},
      {"\\DATABASE\\new\\File.mdb", "Database/new/File.mdb"},
      {"\\IMAGE\\Ev1.jpg", "IMAGE/Ev1.jpg"},
      {".\\.\\\\image//ev1.jpg", "image/ev1.jpg"},
      {"/etc/a..b", "etc/a..b"},
  };
  for (const auto& [path, found] : cases) EXPECT_EQ(ProgramPath(path), Path(found));
  for (const char* path : {"..", "\\..\\x", "image\\..\\..\\x", "image/../../x", "image\\.."}) {
    EXPECT_EQ(ErrorOf([&] { ProgramPath(path); }), errors::kPathNotFound) << path;
  }
}

TEST_F(MachineTest, FilesAreReplacedWholeAndKeepOwnerAndRights) {
  const std::string path = Path("config.qmz");
  const std::string bytes = "1\r\n\xff" + std::string(300'000, '\0');
  Put("config.qmz", "old");
  Put("config.qmz.new", std::string(400'000, '?'));  // A killed writer has left it.
  fs::permissions(path, fs::perms(0640));
  const bool root = chown(path.c_str(), 1234, 1235) == 0;
  ReplaceFile(path, bytes);
  struct stat replaced {};
  stat(path.c_str(), &replaced);
  EXPECT_EQ(replaced.st_mode & 07777, 0640U);
  EXPECT_TRUE(!root || (replaced.st_uid == 1234 && replaced.st_gid == 1235));
  ReplaceFile(Path("fresh"), bytes);
  EXPECT_EQ(fs::status(Path("fresh")).permissions(), fs::perms(0600));
  fs::remove(Path("fresh"));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);

  std::signal(SIGXFSZ, SIG_IGN);
  rlimit usual{};
  getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit small{4096, usual.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  const int error = ErrorOf([&] { ReplaceFile(path, std::string(10'000, 'y')); });
  setrlimit(RLIMIT_FSIZE, &usual);
  EXPECT_EQ(error, errors::kPathAccess);
  EXPECT_FALSE(fs::exists(path + ".new"));
  EXPECT_TRUE(ReadWholeFile(path) == bytes) << "a write that fails halfway leaves the old file";
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile(path + "x"); }), errors::kFileNotFound);
  EXPECT_EQ(ErrorOf([&] { ReadWholeFile("/proc/self/mem"); }), errors::kPathAccess);
}

/// The program writes down beside itself how many arguments it has, whether it leads a session of
/// its own, whether it ignores and blocks no signal, and its argument.
constexpr char kProgram[] =
    "#!/bin/sh\n"
    "[ $$ = $(cut -d' ' -f6 /proc/$$/stat) ] && session=own\n"
    "signals=$(grep -c 'Sig[IB][gl][nk]:.*0000$' /proc/self/status)\n"
    "printf '%s' \"$# $session $signals $1\" > \"$0.part\"\n"
    "mv \"$0.part\" \"$0.out\"\n";

TEST_F(MachineTest, ProgramsAreFoundBeginFreshAndGetOneArgumentByteForByte) {
  for (const char* name : {"alert", "sub folder/mailto", "both.exe"}) Put(name, kProgram, 0755);
  for (const char* name : {"both", "plain", "folder.exe/file"}) Put(name, "no program");
  const auto start = [this](const char* program, const std::string& rest) {
    StartProgram(Path(program), rest, WindowStyle::NormalFocus);
  };
  // What the monitor ignores or blocks is not for its programs.
  std::signal(SIGPIPE, SIG_IGN);
  sigset_t term;
  sigemptyset(&term);
  sigaddset(&term, SIGTERM);
  sigprocmask(SIG_BLOCK, &term, nullptr);
  const std::tuple<const char*, const char*, std::string> cases[] = {
      {"alert.exe", "alert", "[1][two words][\"quoted\" 'x' \\ $HOME `id` * ;|&]"},
      {"alert", "alert", " line\r\n\ttab\n\xE6\x99\x82\xFF\xFE\x80"},
      {"\\sub folder\\mailto.EXE", "sub folder/mailto", ""},
      {"both.exe", "both.exe", "-n"},
  };
  for (const auto& [program, name, rest] : cases) {
    start(program, rest);
    const std::string out = Path(name) + ".out";
    PumpUntil([&] { return IsFile(out); });
    EXPECT_EQ(ReadWholeFile(out), (rest.empty() ? "0 own 2 " : "1 own 2 ") + rest) << program;
    fs::remove(out);
  }
  sigprocmask(SIG_UNBLOCK, &term, nullptr);
  EXPECT_EQ(waitpid(-1, nullptr, 0), -1) << "a dead program is left behind";
  EXPECT_EQ(ErrorOf([&] { start("missing.exe", ""); }), errors::kFileNotFound);
  EXPECT_EQ(ErrorOf([&] { start("folder.exe", ""); }), errors::kFileNotFound);
  EXPECT_EQ(ErrorOf([&] { start("plain.exe", ""); }), errors::kPathAccess);
}

TEST_F(MachineTest, AUnitNamesItsProgramOrIsNotInstalledAtAll) {
  setenv("VAREK_ROOT", Path("root").c_str(), 1);
  const std::string usual = getenv("PATH");
  setenv("PATH", folder.Path().c_str(), 1);  // No manager is to be found.
  const std::string units = Path("root/etc/systemd/system/"), unit = units + "varekservice.service";
  const auto install = [this](const std::string& name) {
    SetProgramFolder(Path(name));
    return ErrorOf(InstallService);
  };
  EXPECT_EQ(install("50% off"), 0);
  EXPECT_NE(ReadWholeFile(unit).find("ExecStart=\"" + Path("50%% off/Varek\"\n")),
            std::string::npos);
  EXPECT_EQ(ErrorOf(UninstallService), 0);
  EXPECT_EQ(install("it's"), errors::kPathAccess) << "the manager takes no quotes";
  fs::remove_all(units);
  Put("root/etc/systemd/system/multi-user.target.wants", "no folder");
  EXPECT_EQ(install("plain"), errors::kPathAccess);
  EXPECT_FALSE(fs::exists(unit)) << "nothing is installed by halves";
  SetProgramFolder(Path("\"50%\" off"));
  EXPECT_TRUE(SetAutostart(Autostart::Run, "Varek", "\\M"));
  EXPECT_NE(ReadWholeFile(Path("root/etc/xdg/autostart/Varek.desktop"))
                .find("\nExec=\"" + Path(R"(\\"50%%\\" off/Varek" "\\\\M")") + "\n"),
            std::string::npos);
  setenv("PATH", usual.c_str(), 1);
  setenv("VAREK_ROOT", "/nonexistent", 1);
}

class SerialPortTest : public MachineTest {
 protected:
  SerialPortTest() {
    varek::test::StartToolkit();
    setenv("VAREK_COM_DIR", folder.Path().c_str(), 1);
    port.SetCommPort(3);
    port.Open();
  }

  void ExpectInput(const std::string& bytes) {
    unit->Send(bytes);
    PumpUntil([&] { return port.InBufferCount() >= bytes.size(); });
    EXPECT_EQ(port.Input(), bytes);
  }

  std::optional<varek::test::PseudoTerminal> unit{std::in_place, Path("com3")};
  SerialPort port;
};

TEST_F(SerialPortTest, EveryByteGoesBothWaysUnchangedForOneUserAlone) {
  std::string all = "(\r\n";
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  ExpectInput(all);
  port.Output("Q1\r");
  port.Output(all);
  std::string received;
  PumpUntil([&] { return (received += unit->Receive()).size() >= all.size() + 3; });
  EXPECT_EQ(received, "Q1\r" + all);
  EXPECT_EQ(port.InBufferCount(), 0U);  // No echo.

  SerialPort second;
  second.SetCommPort(3);
  EXPECT_EQ(ErrorOf([&] { second.Open(); }), errors::kPortOpenFailed);
  ExpectInput("still the first");
}

TEST_F(SerialPortTest, ADeviceThatGoesIsClosedAndOpensAgain) {
  unit.reset();
  // Between two looks at the port the loop must sleep, though the device is gone.
  int rounds = 0;
  for (const int64_t end = TickCount() + 200; TickCount() < end; ++rounds) WaitForEvents(10);
  EXPECT_LT(rounds, 100);
  EXPECT_FALSE(port.PortOpen());
  EXPECT_EQ(port.Input(), "");
  EXPECT_EQ(ErrorOf([&] { port.Output("Q1\r"); }), errors::kPortNotOpen);
  EXPECT_EQ(ErrorOf([&] { port.Open(); }), errors::kPortOpenFailed);
  unit.emplace(Path("com3"));
  port.Open();
  ExpectInput("(220");
}

TEST_F(SerialPortTest, ALockHoldsWhileItsProcessRunsWhoeverHasLeftIt) {
  if (geteuid() != 0) GTEST_SKIP() << "needs a second account";
  port.Close();
  const fs::path device = fs::canonical(Path("com3"));
  const std::string lock = "/var/lock/LCK..pts_" + device.filename().string();
  fs::permissions(device, fs::perms(0666));
  fs::permissions(folder.Path(), fs::perms(0755));
  const std::string parent = std::to_string(getppid());
  const std::pair<std::string, std::string> cases[] = {
      {"2147483646\nVarek\n", ""},
      {std::to_string(getpid()) + "\nplatform_test\n", ""},  // The number is ours now,
      {parent + "\nnobody at all\n", ""},                    // or another program's.
      {"      " + parent + "\n", "(process " + parent + ")"},
  };
  for (const auto& [text, holder] : cases) {
    std::ofstream(lock) << text;
    std::string told;
    EXPECT_EQ(seteuid(65534), 0);
    try {
      port.Open();
    } catch (const RuntimeError& error) {
      told = error.what();
    }
    EXPECT_EQ(seteuid(0), 0);
    EXPECT_EQ(port.PortOpen(), holder.empty()) << text << told;
    EXPECT_NE(told.find(holder), std::string::npos) << told;
    port.Close();
  }
  fs::remove(lock);
}

TEST_F(SerialPortTest, AFloodIsHeldBackAndLosesNothing) {
  std::string sent, arrived;
  for (int i = 0; i < 200; ++i, WaitForEvents(1)) {  // Nobody reads.
    const std::string more(512, static_cast<char>('a' + i % 26));
    sent += more.substr(0, unit->Send(more));
  }
  EXPECT_TRUE(PumpUntil([&] {
    EXPECT_LE(port.InBufferCount(), 4096U);
    return (arrived += port.Input()).size() >= sent.size();
  }));
  EXPECT_EQ(arrived, sent);
  // A device that takes nothing is an error.
  const auto press = [&] { port.Output(std::string(500, 'x')); };
  EXPECT_TRUE(PumpUntil([&] { return ErrorOf(press) == errors::kDeviceIo; }));
}

}  // namespace
}  // namespace platform
