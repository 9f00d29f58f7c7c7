// The standard save dialogue.
#pragma once

#include <functional>
#include <string>

class QWidget;

namespace varek {

struct SaveQuestion {
  std::string title;
  std::string folder;   ///< in which it starts
  std::string name;     ///< that is proposed; its suffix goes to a name that has none
  std::string filters;  ///< pairs of what is shown and its pattern, all parted by "|"
};

/// The chosen file, or an empty name when there is none. Other handlers run meanwhile; `window` may
/// go, and takes the dialogue along.
std::string AskSaveName(QWidget& window, const SaveQuestion& question);

/// Takes the place of the dialogue for tests; nullptr restores.
void ReplaceSaveDialog(std::function<std::string(const SaveQuestion& question)> ask);

}  // namespace varek
