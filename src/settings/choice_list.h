// A list of choices that the mouse wheel leaves alone: turned on its way over a window, it must not
// change a setting.
#pragma once

#include <QComboBox>
#include <QWheelEvent>

namespace varek {

class ChoiceList final : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace varek
