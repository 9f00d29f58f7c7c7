// A lock of the system on a file. It is given back with the object and when the process ends, in
// whatever way; so a killed process leaves none behind.
#pragma once

#include <functional>

namespace platform {

enum class LockTry {
  Taken,    ///< this object has the lock
  Busy,     ///< another process has it
  NoPlace,  ///< the lock file can't be made or opened
};

class FileLock {
 public:
  /// `open` makes or opens the file and gives its descriptor, -1 when it can't. Whoever may open
  /// the file, even for reading alone, can hold the lock.
  explicit FileLock(std::function<int()> open);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  /// Takes the lock, unless this object has it already. Never waits.
  LockTry Take();
  bool IsTaken() const { return file_ >= 0; }
  void Release();

 private:
  std::function<int()> open_;
  int file_ = -1;
};

}  // namespace platform
