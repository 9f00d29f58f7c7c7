// The small bubble of text beside whatever the pointer rests on.
#pragma once

#include <QLabel>
#include <string>

namespace varek {

/// The frame with its text: 15 from the left, 5 from the top, as large as the text needs.
class Bubble final : public QLabel {
 public:
  explicit Bubble(QWidget* parent);

  /// Shows `text` with the bubble's corner at `place`, moved in where it would leave the parent.
  void ShowText(const std::string& text, QPoint place);
};

}  // namespace varek
