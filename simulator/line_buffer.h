// Cuts a stream of bytes, in whatever pieces it arrives, into lines of bounded length.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

class LineBuffer final {
 public:
  struct Line {
    std::string text;      ///< without its terminator
    bool tooLong = false;  ///< the text was longer than the limit and is lost
  };

  LineBuffer(char terminator, size_t limit) : terminator_(terminator), limit_(limit) {}

  /// The lines that `bytes` complete.
  std::vector<Line> Feed(std::string_view bytes);

 private:
  void Append(std::string_view bytes);

  char terminator_;
  size_t limit_;
  Line pending_;
};

}  // namespace simulator
