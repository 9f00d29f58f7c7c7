#include "simulator/control.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

namespace simulator {

namespace fs = std::filesystem;

namespace {

constexpr size_t kLongestLine = 4096;
constexpr size_t kMostClients = 32;
constexpr int kBacklog = 8;

sockaddr_un AddressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) {
    errno = ENAMETOOLONG;
    ThrowSystemError(path);
  }
  path.copy(address.sun_path, path.size());
  return address;
}

platform::Descriptor NewSocket() {
  platform::Descriptor fresh(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  if (fresh.Number() < 0) ThrowSystemError("socket");
  return fresh;
}

/// Makes way for a new socket, unless another program serves the old one.
void RemoveDeadSocket(const std::string& path, const sockaddr_un& address) {
  if (fs::status(path).type() != fs::file_type::socket) return;
  const platform::Descriptor probe = NewSocket();
  if (connect(probe.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
    errno = EADDRINUSE;
    ThrowSystemError(path);
  }
  fs::remove(path);
}

}  // namespace

Control::~Control() {
  if (!path_.empty()) unlink(path_.c_str());
}

void Control::ServeStandardInput() {
  loop_.Watch(STDIN_FILENO, [this, received = LineBuffer('\n', kLongestLine)]() mutable {
    std::string bytes;
    const auto result = ReadSome(STDIN_FILENO, bytes);
    if (result == ReadResult::Data) Serve(received, bytes, STDOUT_FILENO);
    if (result == ReadResult::Ended) loop_.Unwatch(STDIN_FILENO);
  });
}

void Control::Listen(const std::string& path) {
  CreateParentFolder(path);
  const sockaddr_un address = AddressOf(path);
  RemoveDeadSocket(path, address);

  listener_ = NewSocket();
  const mode_t before = umask(0177);
  const int bound =
      bind(listener_.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
  umask(before);
  if (bound < 0) ThrowSystemError(path);
  path_ = path;
  if (listen(listener_.Number(), kBacklog) < 0) ThrowSystemError(path);
  loop_.Watch(listener_.Number(), [this] { Accept(); });
}

void Control::Accept() {
  platform::Descriptor socket(
      accept4(listener_.Number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
  const int fd = socket.Number();
  if (fd < 0 || clients_.size() >= kMostClients) return;
  clients_.emplace(fd, Client{std::move(socket), LineBuffer('\n', kLongestLine)});
  loop_.Watch(fd, [this, fd] { ReadClient(fd); });
}

void Control::ReadClient(int fd) {
  std::string bytes;
  const auto result = ReadSome(fd, bytes);
  if (result == ReadResult::NothingNow) return;
  if (result == ReadResult::Ended || !Serve(clients_.at(fd).received, bytes, fd)) Drop(fd);
}

bool Control::Serve(LineBuffer& received, std::string_view bytes, int answerFd) {
  for (const auto& line : received.Feed(bytes)) {
    const std::string answer = line.tooLong
                                   ? "error: longer than " + std::to_string(kLongestLine) + " bytes"
                                   : commands_.Execute(line.text);
    if (!WriteAll(answerFd, answer + "\n")) return false;
  }
  return true;
}

void Control::Drop(int fd) {
  loop_.Unwatch(fd);
  clients_.erase(fd);
}

}  // namespace simulator
