// The entry field for a time of day: five characters "hh:mm", written over digit by digit, that are
// a time at every moment.
#pragma once

#include <QLineEdit>
#include <string>
#include <string_view>

namespace varek {

/// "00:00" to "23:59", always five characters.
bool IsTimeOfDay(std::string_view text);

/// What the keys do, without a field.
struct TimeMask {
  std::string text = "12:00";  ///< REQUIRES IsTimeOfDay
  int caret = 0;               ///< 0 to 5; the next digit to be replaced stands behind it

  /// Replaces the digit at the caret and moves on, over the colon; a 2 that would make the hour too
  /// high also makes its second digit 0. At the end, and for a key that fits no time of day there,
  /// nothing happens.
  void Type(char key);
  /// Moves back, over the colon, and puts 0 in place of the digit there.
  void Backspace();
};

/// Typing begins with the first digit after Tab or a double click, else at the caret.
class TimeBox final : public QLineEdit {
 public:
  /// Holds "12:00". Errors are reported under `name`.
  TimeBox(QWidget* parent, std::string name);

  std::string Time() const { return text().toStdString(); }
  /// Takes a time in any padding; what is no time leaves the field as it is.
  void SetTime(const std::string& time);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  bool HandleKey(const QKeyEvent& event);

  std::string name_;
};

}  // namespace varek
