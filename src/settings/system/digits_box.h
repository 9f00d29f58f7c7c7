// An entry box for a few digits. What is too long loses its beginning, so that a new number can be
// typed straight over the old one.
#pragma once

#include <QLineEdit>
#include <string>

namespace varek {

class DigitsBox final : public QLineEdit {
 public:
  /// Takes the digits from `least` ('0' or '1') to '9' and keeps the last `most` characters. Only
  /// keys write into it: a digit below `least` can be neither typed nor pasted, though SetText may
  /// show one. Errors are reported under `name`.
  DigitsBox(QWidget* parent, std::string name, char least, int most);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  bool IsTaken(const QKeyEvent& key) const;
  void KeepTheLast();

  std::string name_;
  char least_;
  int most_;
};

}  // namespace varek
