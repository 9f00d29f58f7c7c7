#include "support/serial_line.h"

#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <utility>

#include "platform/time/events.h"
#include "platform/toolkit/application.h"

namespace varek::test {

PseudoTerminal::PseudoTerminal(std::string link)
    : link_(std::move(link)), fd_(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
  grantpt(fd_);
  unlockpt(fd_);
  char device[64] = "";
  ptsname_r(fd_, device, sizeof device);
  std::filesystem::create_symlink(device, link_);
}

PseudoTerminal::~PseudoTerminal() {
  std::filesystem::remove(link_);
  close(fd_);
}

size_t PseudoTerminal::Send(const std::string& bytes) const {
  const ssize_t count = write(fd_, bytes.data(), bytes.size());
  return count > 0 ? static_cast<size_t>(count) : 0;
}

std::string PseudoTerminal::Receive(int milliseconds) const {
  pollfd ready{fd_, POLLIN, 0};
  ::poll(&ready, 1, milliseconds);
  char bytes[8192];
  const ssize_t count = read(fd_, bytes, sizeof bytes);
  return std::string(bytes, count > 0 ? static_cast<size_t>(count) : 0);
}

void StartToolkit() {
  static int argc = 1;
  static char name[] = "test";
  static char* argv[] = {name, nullptr};
  // Never destroyed: the toolkit's own statics may go before it does.
  static auto* application = new platform::Application(argc, argv);
  static_cast<void>(application);
}

bool PumpUntil(const std::function<bool()>& condition) {
  using Clock = std::chrono::steady_clock;
  const auto deadline = Clock::now() + std::chrono::seconds(20);
  bool met = false;
  while (!(met = condition()) && Clock::now() < deadline) {
    platform::DoEvents();
    usleep(500);
  }
  return met;
}

}  // namespace varek::test
