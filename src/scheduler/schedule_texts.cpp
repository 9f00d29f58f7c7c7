// The short texts with which both front ends show an entry, in the present language.
#include "platform/text/text.h"
#include "scheduler/schedule_model.h"
#include "texts/language.h"

namespace varek {

namespace {

constexpr size_t kDaysOfWeek = 7;

/// The text of a digit 0 to 6 in a table of seven that begins at `first`; else empty.
std::string SevenTexts(size_t first, char digit) {
  const auto index = static_cast<size_t>(digit - '0');
  return index < kDaysOfWeek ? LangText[first + index] : std::string();
}

/// The template shows with a "0" where the day goes.
std::string MonthDayText(const std::string& day) {
  std::string text;
  for (char c : LangText[texts::kRepeatMonthDay]) text += c == '0' ? day : std::string(1, c);
  return text;
}

}  // namespace

std::string EventCodeText(const std::string& code) {
  const size_t action = code.empty() ? std::string::npos : kActionLetters.find(code[0]);
  if (action == std::string::npos) return {};
  return action == kMarkAction ? code.substr(1) + ActionName[action] : ActionName[action];
}

std::string NoteText(const std::string& note) {
  if (note.empty()) return {};
  return note.substr(1) + SevenTexts(texts::kRestartSameDay, note[0]);
}

std::string ReptText(const std::string& rept) {
  const std::string number(platform::Middle(rept, 2));
  switch (rept.empty() ? '\0' : rept[0]) {
    case 'N':
      return LangText[texts::kRepeatOnce];
    case 'D':
      return LangText[texts::kRepeatDaily];
    case 'W':
      return number.empty() ? std::string() : SevenTexts(texts::kRepeatSunday, number[0]);
    case 'M':
      return MonthDayText(number);
    default:
      return {};
  }
}

}  // namespace varek
