// A sender's log: the only place where anyone can learn what became of a message. One line an
// event, behind its time. Readable by its owner only, since it tells who is written to.
#pragma once

#include <string>
#include <utility>

namespace sidecar {

class LogFile final {
 public:
  explicit LogFile(std::string path) : path_(std::move(path)) {}

  /// Adds a line; control characters in `event` become blanks, and it is cut at 1000 characters.
  /// A file that would grow beyond 1 MiB is renamed to "<name>.old" first, in place of an older
  /// one. Several processes may write at a time. When the file can't be written the line goes to
  /// standard error.
  void Add(const std::string& event) const;

 private:
  bool Append(const std::string& line) const;
  void MakeRoom(size_t bytes) const;

  std::string path_;
};

}  // namespace sidecar
