// What must be done however a block ends.
#pragma once

namespace platform {

/// Does what must be done however the steps of its block end.
class OnExit {
 public:
  explicit OnExit(void (*action)()) : action_(action) {}
  ~OnExit() { action_(); }
  OnExit(const OnExit&) = delete;
  OnExit& operator=(const OnExit&) = delete;

 private:
  void (*action_)();
};

}  // namespace platform
