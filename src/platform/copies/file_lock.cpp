#include "platform/copies/file_lock.h"

#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace platform {

FileLock::FileLock(std::function<int()> open) : open_(std::move(open)) {}

FileLock::~FileLock() { Release(); }

LockTry FileLock::Take() {
  if (IsTaken()) return LockTry::Taken;
  const int file = open_();
  if (file < 0) return LockTry::NoPlace;
  if (flock(file, LOCK_EX | LOCK_NB) != 0) {
    const bool busy = errno == EWOULDBLOCK;
    close(file);
    return busy ? LockTry::Busy : LockTry::NoPlace;
  }
  file_ = file;
  return LockTry::Taken;
}

void FileLock::Release() {
  if (IsTaken()) close(file_);
  file_ = -1;
}

}  // namespace platform
