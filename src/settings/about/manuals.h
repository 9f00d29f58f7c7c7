// The list of manuals; a chosen one opens in the program that the desktop has for such files. The
// manuals lie in `manual\` of the program folder, once in each language.
#pragma once

#include "core/forms.h"
#include "views/kit/windows/view_window.h"

class QListWidget;

namespace varek {

class PictureButton;

/// The list of manuals.
class Form17 final : public ViewWindow {
 public:
  static constexpr int kNumber = 17;

  /// A missing picture throws RuntimeError 53.
  Form17();

  void ApplyLanguage();
  /// Opens the manual of list line `index`, in the present language; a line without a manual is
  /// passed over. A missing file or a missing program is reported in a message box, after the
  /// handler.
  void showpdf(int index);

 protected:
  void Form_Resize() override;

 private:
  void OpenSelected();

  QListWidget* list_;
  PictureButton* close_;
};

/// The one instance.
FormSlot<Form17>& Manuals();

/// Shows the list, or raises it.
void ShowManuals();

}  // namespace varek
