// What a countdown shows of itself. The countdowns are rules: they run whether or not somebody
// looks. What shows them is handed in, so that protection stands without any window.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace varek {

class CountdownView {
 public:
  virtual ~CountdownView() = default;
  /// Brings the view up, above all other windows.
  virtual void Show() = 0;
  /// The caption until there is a language.
  virtual void SetCaption(const std::string& text) = 0;
  /// Caption `number` and all other texts in the present language; nothing changes without one.
  virtual void ApplyLanguage(size_t number) = 0;
  /// The time that is left, as it is to be read.
  virtual void SetTime(const std::string& text) = 0;
};

/// Both countdowns may run at a time: one stands left of the middle of the screen, one right.
enum class CountdownPlace { Left, Right };

/// Makes the view of one countdown. `cancel` is what a person's cancelling does; it runs from the
/// event loop and may destroy the view.
using CountdownViewMaker = std::function<std::unique_ptr<CountdownView>(
    CountdownPlace place, std::function<void()> cancel)>;

/// What makes the views from now on; without a maker (nullptr) a countdown shows nothing.
void SetCountdownViewMaker(CountdownViewMaker make);

/// The view of a countdown that begins; never nullptr.
std::unique_ptr<CountdownView> MakeCountdownView(CountdownPlace place,
                                                 std::function<void()> cancel);

}  // namespace varek
