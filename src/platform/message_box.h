// Message boxes. A box belongs to the window that asked and stops only that one: every other window
// goes on, above all the countdowns with their cancel buttons. Without a display its text goes to
// standard error (which is the journal for a service) and nobody waits.
#pragma once

#include <functional>
#include <string>

class QDialog;
class QWidget;

namespace platform {

enum class MessageIcon { Information, Exclamation };

struct Message {
  std::string text;
  std::string title = "Varek";
  MessageIcon icon = MessageIcon::Information;
};

/// Shows a message on `window` and returns at once. `closed` runs when the person has closed it.
/// When `window` goes, the box goes along and `closed` never runs. Without a window (nullptr) the
/// box stands alone and stops none.
void Tell(QWidget* window, const Message& message, std::function<void()> closed = nullptr);

/// The same from the event loop, once the present handler has ended; guarded as `place`. A `window`
/// that goes before that leaves a box without one.
void TellLater(const std::string& place, QWidget* window, const Message& message);

/// Shows a message that belongs to no window and returns when the person has closed it: for what
/// must be read before the program goes on. Other handlers run meanwhile.
void MessageBox(const std::string& text, const std::string& title = "Varek",
                MessageIcon icon = MessageIcon::Information);

/// Makes a box, placed and ready to be shown, which any close lets end as a dialogue does.
using MessageBoxMaker = std::function<QDialog*(QWidget* window, const Message& message)>;

/// What the boxes look like; without a maker they are the toolkit's own.
void SetMessageBoxMaker(MessageBoxMaker make);

/// Writes one line for the administrator: standard error, marked for the journal.
void LogLine(const std::string& text);

/// Takes the place of both kinds of box for tests, and counts as closed at once; nullptr restores.
void ReplaceMessageBox(std::function<void(const std::string& text, const std::string& title)> show);

}  // namespace platform
