// File descriptors of the system that close themselves.
#pragma once

#include <unistd.h>

#include <utility>

namespace platform {

/// Owns one descriptor; -1 is none.
class Descriptor final {
 public:
  Descriptor() = default;
  explicit Descriptor(int opened) : number_(opened) {}
  Descriptor(Descriptor&& other) noexcept : number_(other.Release()) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }

  int Number() const { return number_; }
  /// Gives the descriptor to the caller, who closes it.
  int Release() { return std::exchange(number_, -1); }

 private:
  int number_ = -1;
};

}  // namespace platform
