// A file descriptor that closes itself, and the two operations that every user of one needs.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace simulator {

class FileDescriptor final {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int fd) : fd_(fd) {}
  FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept;
  ~FileDescriptor();

  int Get() const { return fd_; }

 private:
  int fd_ = -1;
};

/// Writes all of `bytes`. False when that is not possible, also because a descriptor that does not
/// block takes no more; a part may then have gone out.
bool WriteAll(int fd, std::string_view bytes);

enum class ReadResult { Data, NothingNow, Ended };

/// Reads what waits, at most 4 KiB, into `bytes`. Ended stands for the end of the input and for
/// every failure that more reading won't cure.
ReadResult ReadSome(int fd, std::string& bytes);

/// Throws std::system_error with the current errno and `what`.
[[noreturn]] void ThrowSystemError(const std::string& what);

/// Makes the folder in which `path` is to stand. Throws std::filesystem::filesystem_error.
void CreateParentFolder(const std::string& path);

}  // namespace simulator
