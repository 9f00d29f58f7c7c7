#include "views/schedule/time_box.h"

#include <QKeyEvent>
#include <QValidator>
#include <utility>

#include "platform/errors/guard.h"
#include "platform/storage/query_dialect.h"
#include "views/kit/controls/keys.h"
#include "views/kit/looks/shown.h"

namespace varek {

namespace {

/// The highest digit of each place, by itself.
constexpr std::string_view kHighest = "29:59";
constexpr std::string_view kHighestHour = "23";
constexpr int kEnd = int{kHighest.size()};
constexpr int kColon = 2;

bool FitsPlace(char key, size_t place) {
  if (place == kColon) return key == ':';
  return IsDigitBetween(QLatin1Char(key), '0', kHighest[place]);
}

/// Whatever else can change a field (Delete, the clipboard, its menu) can't leave it without a
/// time.
class TimesOnly final : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& text, int&) const override {
    return IsTimeOfDay(text.toStdString()) ? Acceptable : Invalid;
  }
};

}  // namespace

bool IsTimeOfDay(std::string_view text) {
  if (text.size() != kHighest.size()) return false;
  for (size_t place = 0; place < text.size(); ++place) {
    if (!FitsPlace(text[place], place)) return false;
  }
  return text.substr(0, kColon) <= kHighestHour;
}

void TimeMask::Type(char key) {
  const int place = caret == kColon ? kColon + 1 : caret;
  if (place >= kEnd) return;
  std::string typed = text;
  typed[static_cast<size_t>(place)] = key;
  // A 2 before a digit above 3: that digit is the next to be typed anyway.
  if (place == 0 && !IsTimeOfDay(typed)) typed[1] = '0';
  if (!IsTimeOfDay(typed)) return;
  text = std::move(typed);
  caret = place + 1 == kColon ? kColon + 1 : place + 1;
}

void TimeMask::Backspace() {
  const int place = caret == kColon + 1 ? kColon - 1 : caret - 1;
  if (place < 0) return;
  text[static_cast<size_t>(place)] = '0';
  caret = place;
}

TimeBox::TimeBox(QWidget* parent, std::string name)
    : QLineEdit(Shown(TimeMask().text), parent), name_(std::move(name)) {
  setValidator(new TimesOnly(this));
  setAlignment(Qt::AlignCenter);
}

void TimeBox::SetTime(const std::string& time) {
  const auto sortable = platform::SortableDate(time);
  if (!sortable) return;
  const std::string minutes = sortable->substr(0, kHighest.size());
  if (IsTimeOfDay(minutes)) setText(Shown(minutes));
}

/// False for a key that is none of the mask's.
bool TimeBox::HandleKey(const QKeyEvent& event) {
  const auto typed = TypedCharacter(event);
  const bool isBack = event.key() == Qt::Key_Backspace;
  if (!isBack && !(typed && typed->isPrint())) return false;
  // A field that was reached by Tab or a double click is selected, and the caret stands at its end.
  const bool startsAnew = hasSelectedText() && !isBack;
  TimeMask mask{text().toStdString(), startsAnew ? selectionStart() : cursorPosition()};
  isBack ? mask.Backspace() : mask.Type(typed->toLatin1());
  setText(Shown(mask.text));
  setCursorPosition(mask.caret);
  return true;
}

void TimeBox::keyPressEvent(QKeyEvent* event) {
  platform::Guarded(name_ + "_KeyPress", [&] {
    if (!HandleKey(*event)) QLineEdit::keyPressEvent(event);
  });
}

/// The toolkit would select the hour or the minutes alone.
void TimeBox::mouseDoubleClickEvent(QMouseEvent*) { selectAll(); }

}  // namespace varek
