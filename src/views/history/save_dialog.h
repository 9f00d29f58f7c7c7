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
  std::string filters;  ///< pairs of what is shown and its pattern, all separated by "|"
};

/// Asks on `window`, which alone it stops, and returns at once. `save` is given the chosen file,
/// from the event loop; it never runs when none is chosen or when `window` goes.
void AskSaveName(QWidget& window, const SaveQuestion& question,
                 std::function<void(const std::string& file)> save);

/// Takes the place of the dialogue for tests; nullptr restores.
void ReplaceSaveDialog(std::function<std::string(const SaveQuestion& question)> ask);

}  // namespace varek
