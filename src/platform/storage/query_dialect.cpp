#include "platform/storage/query_dialect.h"

#include <algorithm>
#include <regex>

#include "platform/errors/runtime_error.h"
#include "platform/text/text.h"
#include "platform/time/calendar.h"

namespace platform {

namespace {

constexpr std::string_view kWhite = " \t\r\n\f\v";

[[noreturn]] void FailSyntax(const std::string& text) {
  throw RuntimeError(errors::kQuerySyntax, "syntax error in query: " + text);
}

bool DateExists(int year, int month, int day) {
  return month >= 1 && month <= 12 && day >= 1 && day <= DaysInMonth(year, month);
}

std::optional<std::string> SortableDay(const std::string& text) {
  static const std::regex form(R"((\d{4})[/-](\d{1,2})[/-](\d{1,2}))");
  std::smatch parts;
  if (!std::regex_match(text, parts, form)) return {};
  const int year = std::stoi(parts[1]), month = std::stoi(parts[2]), day = std::stoi(parts[3]);
  if (!DateExists(year, month, day)) return {};
  return parts[1].str() + "-" + ZeroPadded(month, 2) + "-" + ZeroPadded(day, 2);
}

std::optional<std::string> SortableTime(const std::string& text) {
  static const std::regex form(R"((\d{1,2}):(\d{1,2})(?::(\d{1,2}))?)");
  std::smatch parts;
  if (!std::regex_match(text, parts, form)) return {};
  const int hour = std::stoi(parts[1]), minute = std::stoi(parts[2]);
  const int second = parts[3].matched ? std::stoi(parts[3]) : 0;
  if (hour > 23 || minute > 59 || second > 59) return {};
  return ZeroPadded(hour, 2) + ":" + ZeroPadded(minute, 2) + ":" + ZeroPadded(second, 2);
}

// The head of a query is read word by word: the library's patterns recurse once a character, and a
// long text would overrun the stack.

void SkipWhite(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kWhite), text.size()));
}

std::string_view TakeWord(std::string_view& text) {
  SkipWhite(text);
  const std::string_view word = text.substr(0, text.find_first_of(kWhite));
  text.remove_prefix(word.size());
  return word;
}

/// A name in brackets or a bare word.
std::string TakeTable(std::string_view& text) {
  SkipWhite(text);
  if (!text.starts_with('[')) return std::string(TakeWord(text));
  const size_t close = text.find(']');
  if (close == std::string_view::npos) FailSyntax(std::string(text));
  std::string name(text.substr(1, close - 1));
  text.remove_prefix(close + 1);
  return name;
}

/// Goes through a condition once, replacing what the engine spells differently.
class ConditionTranslator {
 public:
  explicit ConditionTranslator(const std::string& source) : source_(source) {}

  std::string Translate() {
    while (at_ < source_.size()) TakeToken();
    return result_;
  }

 private:
  void TakeToken() {
    switch (source_[at_]) {
      case '[':
        result_ += QuoteName(TakeDelimited(']'));
        return;
      case '#':
        TakeDate();
        return;
      case '\'':
      case '"':
        TakeString(source_[at_]);
        return;
      case ')':
        DropTrailingComma();
        break;
      case ';':
      case '\0':  // The engine would take the text to end here.
        FailSyntax(source_);
      default:
        break;
    }
    result_ += source_[at_++];
  }

  /// The text from behind the present character up to `end`, which is passed over.
  std::string TakeDelimited(char end) {
    const size_t close = source_.find(end, at_ + 1);
    if (close == std::string::npos) FailSyntax(source_);
    std::string text = source_.substr(at_ + 1, close - at_ - 1);
    at_ = close + 1;
    return text;
  }

  void TakeDate() {
    const auto date = SortableDate(TakeDelimited('#'));
    if (!date) FailSyntax(source_);
    result_ += "'" + *date + "'";
  }

  void TakeString(char quote) {
    std::string text = TakeDelimited(quote);
    result_ += '\'';
    for (char c : text) result_ += c == '\'' ? std::string("''") : std::string(1, c);
    result_ += '\'';
  }

  void DropTrailingComma() {
    const size_t last = result_.find_last_not_of(' ');
    if (last != std::string::npos && result_[last] == ',') result_.erase(last);
  }

  const std::string& source_;
  size_t at_ = 0;
  std::string result_;
};

}  // namespace

std::optional<std::string> SortableDate(const std::string& text) {
  const std::string trimmed = Trim(text);
  const size_t blank = trimmed.find(' ');
  if (blank == std::string::npos) {
    auto day = SortableDay(trimmed);
    return day ? day : SortableTime(trimmed);
  }
  const auto day = SortableDay(trimmed.substr(0, blank));
  const auto time = SortableTime(Trim(trimmed.substr(blank)));
  if (!day || !time) return {};
  return *day + " " + *time;
}

std::string QuoteName(const std::string& name) {
  std::string quoted = "\"";
  for (char c : name) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

std::string TranslateCondition(const std::string& condition) {
  return ConditionTranslator(condition).Translate();
}

TranslatedQuery TranslateQuery(const std::string& query) {
  std::string_view rest = query;
  for (const char* word : {"select", "*", "from"}) {
    if (!SameIgnoringCase(TakeWord(rest), word)) FailSyntax(query);
  }
  const std::string table = TakeTable(rest);
  const std::string_view where = TakeWord(rest);
  SkipWhite(rest);
  const bool complete = where.empty() || (SameIgnoringCase(where, "where") && !rest.empty());
  if (table.empty() || !complete) FailSyntax(query);
  return {table, TranslateCondition(std::string(rest))};
}

}  // namespace platform
