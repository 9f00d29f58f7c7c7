// Message boxes. A box belongs to the window that asked and stops only that one: every other window
// goes on, above all the countdowns with their cancel buttons. Without a display its text goes to
// standard error (which is the journal for a service) and nobody waits.
#pragma once

#include <functional>
#include <string>

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

/// What shows the boxes where a person sees them; the toolkit's are handed in by the application.
class MessageDriver {
 public:
  virtual ~MessageDriver() = default;
  /// True when a person sees what is shown.
  virtual bool IsSeen() const = 0;
  virtual void Show(QWidget* window, const Message& message, std::function<void()> closed) = 0;
  virtual void ShowAndWait(const Message& message) = 0;
  /// Gives `window` whenever it is asked, and nullptr once that has gone.
  virtual std::function<QWidget*()> Follow(QWidget* window) = 0;
};

/// nullptr takes the driver out again. It must outlive its use.
void SetMessageDriver(MessageDriver* driver);

/// Takes the place of both kinds of box for tests, and counts as closed at once; nullptr restores.
void ReplaceMessageBox(std::function<void(const std::string& text, const std::string& title)> show);

}  // namespace platform
