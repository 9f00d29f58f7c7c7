// The small window of a countdown: a large label with the time and a cancel button, above all other
// windows, in the frame that the views have. Escape is the cancel button; the window can't be
// closed by its frame, since closing and cancelling are not the same thing when the session ends.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace varek {

class CountdownWindow final {
 public:
  /// Both countdowns may run at a time: one stands left of the middle of the screen, one right.
  enum class Place { Left, Right };

  /// `cancel` runs from the event loop after the click, so it may destroy the window.
  CountdownWindow(Place place, std::function<void()> cancel);
  ~CountdownWindow();

  void Show();
  /// The caption until there is a language.
  void SetCaption(const std::string& text);
  /// Caption `number`, the line above the time and the button in the present language; nothing
  /// changes without one.
  void ApplyLanguage(size_t number);
  void SetLabel(const std::string& text);
  std::string Label() const;
  /// What a click on the button does.
  void PressCancel();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace varek
