#include "simulator/line_buffer.h"

#include <utility>

namespace simulator {

std::vector<LineBuffer::Line> LineBuffer::Feed(std::string_view bytes) {
  std::vector<Line> lines;
  for (size_t end = bytes.find(terminator_); end != bytes.npos; end = bytes.find(terminator_)) {
    Append(bytes.substr(0, end));
    lines.push_back(std::exchange(pending_, {}));
    bytes.remove_prefix(end + 1);
  }
  Append(bytes);
  return lines;
}

void LineBuffer::Append(std::string_view bytes) {
  if (pending_.text.size() + bytes.size() > limit_) pending_.tooLong = true;
  if (pending_.tooLong) {
    pending_.text.clear();
  } else {
    pending_.text += bytes;
  }
}

}  // namespace simulator
