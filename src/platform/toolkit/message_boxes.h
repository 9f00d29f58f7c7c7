// Message boxes by the toolkit.
#pragma once

#include <functional>

#include "platform/desktop/message_box.h"

class QDialog;
class QWidget;

namespace platform {

/// Makes a box, placed and ready to be shown, which any close lets end as a dialogue does.
using MessageBoxMaker = std::function<QDialog*(QWidget* window, const Message& message)>;

/// What the boxes look like; without a maker they are the toolkit's own.
void SetMessageBoxMaker(MessageBoxMaker make);

/// REQUIRES the application as long as it is used.
class ToolkitMessageBoxes final : public MessageDriver {
 public:
  bool IsSeen() const override;
  void Show(QWidget* window, const Message& message, std::function<void()> closed) override;
  void ShowAndWait(const Message& message) override;
  std::function<QWidget*()> Follow(QWidget* window) override;
};

}  // namespace platform
