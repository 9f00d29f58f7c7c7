#include "simulator/pseudo_terminal.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace simulator {

namespace fs = std::filesystem;

namespace {

platform::Descriptor Checked(int fd, const std::string& what) {
  if (fd < 0) ThrowSystemError(what);
  return platform::Descriptor(fd);
}

platform::Descriptor OpenMaster() {
  platform::Descriptor master =
      Checked(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "pseudo-terminal");
  if (grantpt(master.Number()) < 0 || unlockpt(master.Number()) < 0)
    ThrowSystemError("pseudo-terminal");
  fcntl(master.Number(), F_SETFL, O_NONBLOCK);
  return master;
}

std::string SlavePath(int master) {
  char path[PATH_MAX];
  if (const int error = ptsname_r(master, path, sizeof path)) {
    errno = error;
    ThrowSystemError("pseudo-terminal");
  }
  return path;
}

void MakeRaw(int fd) {
  termios settings{};
  tcgetattr(fd, &settings);
  cfmakeraw(&settings);
  cfsetspeed(&settings, B9600);
  tcsetattr(fd, TCSANOW, &settings);
}

}  // namespace

PseudoTerminal::PseudoTerminal() : master_(OpenMaster()), path_(SlavePath(master_.Number())) {
  slave_ = Checked(open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC), path_);
  MakeRaw(slave_.Number());
  closeEvents_ = Checked(inotify_init1(IN_NONBLOCK | IN_CLOEXEC), "inotify");
  if (inotify_add_watch(closeEvents_.Number(), path_.c_str(), IN_CLOSE) < 0)
    ThrowSystemError(path_);
}

PseudoTerminal::~PseudoTerminal() {
  std::error_code error;
  if (!link_.empty() && fs::read_symlink(link_, error) == path_) fs::remove(link_, error);
}

void PseudoTerminal::LinkAs(const std::string& link) {
  CreateParentFolder(link);
  const auto status = fs::symlink_status(link);
  if (fs::exists(status) && !fs::is_symlink(status)) {
    errno = EEXIST;
    ThrowSystemError(link + " is no link");
  }
  const std::string fresh = link + "." + std::to_string(getpid());
  fs::create_symlink(path_, fresh);
  fs::rename(fresh, link);
  link_ = link;
}

void PseudoTerminal::GiveUpHold() {
  std::string events;
  while (ReadSome(closeEvents_.Number(), events) == ReadResult::Data) {
  }
  ioctl(slave_.Number(), TIOCNXCL);
}

}  // namespace simulator
