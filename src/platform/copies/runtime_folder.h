// The user's runtime folder, in which the running copies of a program find each other. Names in it
// are made from the program folder's path, so that two installations never meet.
#pragma once

#include <string>

#include "platform/copies/file_lock.h"

namespace platform {

/// The file "varek-<key of the program folder><suffix>" in the session's runtime folder, or in a
/// folder of our own that only this user can use. Empty when there is none that can be trusted.
std::string RuntimePath(const std::string& suffix);

/// A lock on a file in the runtime folder.
class RuntimeLock final : public FileLock {
 public:
  /// REQUIRES a `suffix` that differs from those of all other uses of the folder.
  explicit RuntimeLock(const std::string& suffix);
};

}  // namespace platform
