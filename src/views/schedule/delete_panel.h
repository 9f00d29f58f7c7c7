// The choice panel of the schedule calendar: how much of an entry that repeats is to be deleted.
#pragma once

#include <QPushButton>
#include <array>
#include <functional>

#include "scheduler/schedule_edit.h"
#include "views/kit/windows/movable_panel.h"

namespace varek {

class PictureButton;

class DeletePanel final : public MovablePanel {
 public:
  /// `chosen` runs guarded with one of kDeleteChoices. The cross in the title puts the panel away
  /// and deletes nothing.
  DeletePanel(QWidget* parent, StickyPanels& panels, size_t number,
              const std::function<void(char choice)>& chosen);

  /// The captions; the panel takes the size that they need.
  void ApplyLanguage();

 private:
  std::array<QPushButton*, kDeleteChoices.size()> choices_{};  ///< by place in kDeleteChoices
  PictureButton* cross_ = nullptr;
};

}  // namespace varek
