// One window for several copies of a small program: the first copy collects the texts of those that
// are started while it runs. A copy knows that its text has arrived, so that none gets lost,
// however many begin at once and even when the first is just ending.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace platform {

class TextCollector final {
 public:
  /// `topic` keeps programs in one folder apart: letters and digits.
  explicit TextCollector(const std::string& topic);
  ~TextCollector();

  /// True when the copy that collects has confirmed `text`; of a text longer than 8 KiB it takes
  /// nothing. False when this copy is to show the text itself: it is the first, or the other one
  /// has not answered for ten seconds. REQUIRES a text without NUL characters.
  bool HandOver(const std::string& text);

  /// Calls `receive` from the event loop with each text of a later copy, and confirms it when
  /// `receive` returns. Only the first copy listens; in any other this does nothing.
  void Collect(std::function<void(const std::string& text)> receive);

  /// Ends Collect. What was not confirmed is shown by the copy that sent it.
  void Stop();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
