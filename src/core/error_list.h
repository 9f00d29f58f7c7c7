// The error list: lines that handlers leave when an error ends them. A bare list, shown to nobody
// unless its window is opened.
#pragma once

#include <deque>
#include <string>

namespace varek {

/// The list behind Form13. The oldest lines fall out when it is full, so that a port that fails
/// once a second for a year costs no memory.
class Form13 final {
 public:
  static constexpr size_t kLimit = 2000;

  /// Adds one line: the present time, `place`, `number`, "錯誤".
  static void AddError(const std::string& place, int number);

  /// The newest last.
  static const std::deque<std::string>& List1();
  static void Clear();
};

}  // namespace varek
