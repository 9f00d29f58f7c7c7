#include "core/error_list.h"

#include "platform/time/clock.h"

namespace varek {

namespace {
std::deque<std::string>& Lines() {
  static std::deque<std::string> lines;
  return lines;
}
}  // namespace

void Form13::AddError(const std::string& place, int number) {
  Lines().push_back(platform::FormatTime(platform::Now()) + place + std::to_string(number) +
                    "錯誤");
  if (Lines().size() > kLimit) Lines().pop_front();
}

const std::deque<std::string>& Form13::List1() { return Lines(); }

void Form13::Clear() { Lines().clear(); }

}  // namespace varek
