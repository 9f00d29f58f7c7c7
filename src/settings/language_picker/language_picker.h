// The language picker: three pictures, each with the name of a language in that language. A click
// changes the language of every open window at once and keeps the choice in the settings.
#pragma once

#include <array>
#include <cstdint>

#include "core/forms.h"
#include "views/kit/windows/view_window.h"

namespace varek {

class PictureButton;

/// The language picker.
class Form7 final : public ViewWindow {
 public:
  static constexpr int kNumber = 7;

  /// A missing picture throws RuntimeError 53.
  Form7();

  void ApplyLanguage();

 protected:
  void Form_Resize() override;

 private:
  std::array<PictureButton*, 3> languages_;  ///< by language index
};

/// Makes language `index` (0 to 2) the present one: on every open window, for the web pages from
/// the next request on, and in the configuration file. Closes the picker.
/// A file that can't be written is reported; the language has changed all the same.
void ChooseLanguage(int16_t index);

/// The one instance.
FormSlot<Form7>& LanguagePicker();

/// Shows the picker, or raises it.
void ShowLanguagePicker();

}  // namespace varek
