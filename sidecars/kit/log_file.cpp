#include "kit/log_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "kit/utf8.h"
#include "platform/errors/log.h"
#include "platform/system/descriptor.h"
#include "platform/time/clock.h"

namespace sidecar {

namespace fs = std::filesystem;

namespace {

constexpr size_t kMostBytes = 1 << 20;
constexpr size_t kMostCharacters = 1000;

platform::Descriptor Open(const std::string& path, int flags) {
  return platform::Descriptor(open(path.c_str(), flags, 0600));
}

}  // namespace

void LogFile::Add(const std::string& event) const {
  const std::string line = platform::FormatStored(platform::Now()) + " " +
                           OneLine(Shortened(event, kMostCharacters)) + "\n";
  // Two processes must not both take the file for too long and rename it twice.
  // The lock is a file that no other account can open and hold.
  const platform::Descriptor lock = Open(path_ + ".lock", O_WRONLY | O_CREAT | O_CLOEXEC);
  flock(lock.Number(), LOCK_EX);
  MakeRoom(line.size());
  if (!Append(line)) platform::LogLine(fs::path(path_).filename().string() + ": " + line);
}

void LogFile::MakeRoom(size_t bytes) const {
  std::error_code error;
  const auto size = fs::file_size(path_, error);
  if (!error && size + bytes > kMostBytes) fs::rename(path_, path_ + ".old", error);
}

bool LogFile::Append(const std::string& line) const {
  const platform::Descriptor file = Open(path_, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC);
  if (file.Number() < 0) return false;
  fchmod(file.Number(), 0600);  // Fails on a file of another account, which is up to that account.
  const bool whole =
      write(file.Number(), line.data(), line.size()) == static_cast<ssize_t>(line.size());
  fdatasync(file.Number());  // The power may be cut at any moment.
  return whole;
}

}  // namespace sidecar
