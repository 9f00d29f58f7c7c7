#include "settings/system/digits_box.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

#include "platform/errors/guard.h"
#include "views/kit/controls/keys.h"

namespace varek {

DigitsBox::DigitsBox(QWidget* parent, std::string name, char least, int most)
    : QLineEdit(parent), name_(std::move(name)), least_(least), most_(most) {
  setAttribute(Qt::WA_InputMethodEnabled, false);
  setContextMenuPolicy(Qt::NoContextMenu);
  setAcceptDrops(false);
  connect(this, &QLineEdit::textEdited, this,
          [this] { platform::Guarded(name_ + "_Change", [this] { KeepTheLast(); }); });
}

bool DigitsBox::IsTaken(const QKeyEvent& key) const {
  if (key.matches(QKeySequence::Paste)) return false;
  const auto typed = TypedCharacter(key);
  return !typed || IsDigitBetween(*typed, least_, '9');
}

/// What the box drops may still mean something to the window.
void DigitsBox::keyPressEvent(QKeyEvent* event) {
  platform::Guarded(name_ + "_KeyPress",
                    [&] { IsTaken(*event) ? QLineEdit::keyPressEvent(event) : event->ignore(); });
}

/// The middle button would paste.
void DigitsBox::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::MiddleButton) QLineEdit::mouseReleaseEvent(event);
}

/// A text that is set has its caret at the end.
void DigitsBox::KeepTheLast() {
  if (text().size() > most_) setText(text().right(most_));
}

}  // namespace varek
