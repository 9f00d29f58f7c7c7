// How a program of ours is started.
#pragma once

#include <spawn.h>

#include <csignal>

namespace platform {

/// Begins with the signals in their usual state, whatever the parent does with them. `flags` are
/// the POSIX_SPAWN_ ones that are wanted besides.
class SpawnAttributes final {
 public:
  explicit SpawnAttributes(int flags) {
    posix_spawnattr_init(&attributes_);
    sigset_t all, none;
    sigfillset(&all);
    sigemptyset(&none);
    posix_spawnattr_setsigdefault(&attributes_, &all);
    posix_spawnattr_setsigmask(&attributes_, &none);
    posix_spawnattr_setflags(
        &attributes_, static_cast<short>(POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | flags));
  }
  ~SpawnAttributes() { posix_spawnattr_destroy(&attributes_); }
  SpawnAttributes(const SpawnAttributes&) = delete;
  SpawnAttributes& operator=(const SpawnAttributes&) = delete;

  const posix_spawnattr_t* Get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_;
};

}  // namespace platform
