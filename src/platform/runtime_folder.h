// The user's runtime folder, in which the running copies of a program find each other. Names in it
// are made from the program folder's path, so that two installations never meet.
#pragma once

#include <string>

namespace platform {

/// The file "varek-<key of the program folder><suffix>" in the session's runtime folder, or in a
/// folder of our own that only this user can use. Empty when there is none that can be trusted.
std::string RuntimePath(const std::string& suffix);

enum class LockTry {
  Taken,    ///< this object has the lock
  Busy,     ///< another process has it
  NoPlace,  ///< the lock file can't be made
};

/// A lock of the system on a file in the runtime folder. It is given back with the object and when
/// the process ends, in whatever way.
class RuntimeLock final {
 public:
  /// REQUIRES a `suffix` that differs from those of all other uses of the folder.
  explicit RuntimeLock(std::string suffix);
  ~RuntimeLock();
  RuntimeLock(const RuntimeLock&) = delete;
  RuntimeLock& operator=(const RuntimeLock&) = delete;

  /// Takes the lock, unless this object has it already. Never waits.
  LockTry Take();
  bool IsTaken() const { return file_ >= 0; }
  void Release();

 private:
  std::string suffix_;
  int file_ = -1;
};

}  // namespace platform
