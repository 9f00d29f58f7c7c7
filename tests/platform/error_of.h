// How the tests of this folder ask for an error's number.
#pragma once

#include <functional>

#include "platform/errors/runtime_error.h"

namespace platform {

/// Number of the error that `operation` ends with, 0 when it comes to its end.
inline int ErrorOf(const std::function<void()>& operation) {
  try {
    operation();
  } catch (const RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

}  // namespace platform
