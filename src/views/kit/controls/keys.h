// What keys mean to the controls that people type into or click with the keyboard.
#pragma once

#include <QKeyEvent>
#include <optional>

namespace varek {

inline bool IsEnterKey(int key) { return key == Qt::Key_Return || key == Qt::Key_Enter; }

/// Does to the control that has the focus what a click does.
inline bool IsClickKey(int key) { return IsEnterKey(key) || key == Qt::Key_Space; }

/// What a key types into a box, control characters included; none for a key that moves about or
/// deletes.
inline std::optional<QChar> TypedCharacter(const QKeyEvent& key) {
  const bool deletes = key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete;
  if (deletes || key.text().isEmpty()) return std::nullopt;
  return key.text().at(0);
}

/// Whether a box of digits takes `typed` where the digits `least` to `most` may stand.
constexpr bool IsDigitBetween(QChar typed, char least, char most) {
  return typed >= QLatin1Char(least) && typed <= QLatin1Char(most);
}

}  // namespace varek
