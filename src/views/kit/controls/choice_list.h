// A list of choices that the mouse wheel leaves alone while it is not open: turned on its way over
// a window, it must not change a setting or a month. Every list of choices in a window is one.
#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace varek {

class ChoiceList final : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  /// Here the list is closed: an open one is a window of its own, and scrolls.
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace varek
