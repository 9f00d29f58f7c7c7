// Locks of devices: each is a file in which a program names the process that uses the device.
#pragma once

#include <optional>
#include <string>

namespace platform {

struct LockHolder {
  int process = 0;
  std::string name;   ///< of the process, as far as the lock or the system tells it
  bool runs = false;  ///< else it has left its lock behind
};

/// The process that the lock of `device` names; nothing when there is no lock. `device` is spelled
/// as it is opened: each spelling has a lock of its own.
std::optional<LockHolder> FindLockHolder(const std::string& device);

}  // namespace platform
