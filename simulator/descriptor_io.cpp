#include "simulator/descriptor_io.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace simulator {

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(fd, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes.remove_prefix(static_cast<size_t>(count));
  }
  return true;
}

ReadResult ReadSome(int fd, std::string& bytes) {
  char buffer[4096];
  const ssize_t count = read(fd, buffer, sizeof buffer);
  if (count > 0) {
    bytes.assign(buffer, static_cast<size_t>(count));
    return ReadResult::Data;
  }
  const bool later = count < 0 && (errno == EAGAIN || errno == EINTR);
  return later ? ReadResult::NothingNow : ReadResult::Ended;
}

void ThrowSystemError(const std::string& what) {
  throw std::system_error(errno, std::generic_category(), what);
}

void CreateParentFolder(const std::string& path) {
  const auto folder = std::filesystem::path(path).parent_path();
  if (!folder.empty()) std::filesystem::create_directories(folder);
}

}  // namespace simulator
