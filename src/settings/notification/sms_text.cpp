#include "settings/notification/sms_text.h"

#include <algorithm>

namespace varek {

namespace {

constexpr size_t kWideLimit = 70;
constexpr size_t kNarrowLimit = 160;

/// Western letters with accents are still of one byte.
bool IsDoubleByte(char16_t character) { return character > 0xFF; }

bool IsFirstHalf(char16_t character) { return character >= 0xD800 && character <= 0xDBFF; }

}  // namespace

std::u16string FitSmsText(const std::u16string& text) {
  const size_t limit = std::ranges::any_of(text, IsDoubleByte) ? kWideLimit : kNarrowLimit;
  if (text.size() <= limit) return text;
  std::u16string cut = text.substr(0, limit);
  if (IsFirstHalf(cut.back())) cut.pop_back();
  return cut;
}

}  // namespace varek
