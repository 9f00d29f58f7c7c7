// What can be wrong with the line between a unit and its monitor.
#pragma once

#include <cstddef>

namespace simulator {

struct LineFaults {
  bool silent = false;      ///< no reply goes out
  bool garbleNext = false;  ///< the next reply to "Q1" is rubbish
  size_t splitAt = 0;       ///< bytes after which every reply pauses; 0 for none
};

}  // namespace simulator
