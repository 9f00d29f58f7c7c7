#include "platform/desktop/message_box.h"

#include <utility>

#include "platform/errors/log.h"
#include "platform/time/events.h"

namespace platform {

namespace {

MessageDriver* boxes = nullptr;

std::function<void(const std::string&, const std::string&)>& Replacement() {
  static std::function<void(const std::string&, const std::string&)> show;
  return show;
}

/// True when the message needs no box.
bool IsToldOtherwise(const Message& message) {
  if (Replacement()) {
    Replacement()(message.text, message.title);
    return true;
  }
  if (boxes && boxes->IsSeen()) return false;
  LogLine(message.title + ": " + message.text);
  return true;
}

std::function<QWidget*()> Follow(QWidget* window) {
  if (boxes) return boxes->Follow(window);
  return [] { return nullptr; };
}

}  // namespace

void SetMessageDriver(MessageDriver* driver) { boxes = driver; }

void Tell(QWidget* window, const Message& message, std::function<void()> closed) {
  if (!closed) closed = [] {};
  if (IsToldOtherwise(message)) return closed();
  boxes->Show(window, message, std::move(closed));
}

void TellLater(const std::string& place, QWidget* window, const Message& message) {
  Post(place, [follow = Follow(window), message] { Tell(follow(), message); });
}

void MessageBox(const std::string& text, const std::string& title, MessageIcon icon) {
  const Message message{text, title, icon};
  if (!IsToldOtherwise(message)) boxes->ShowAndWait(message);
}

void ReplaceMessageBox(std::function<void(const std::string&, const std::string&)> show) {
  Replacement() = std::move(show);
}

}  // namespace platform
