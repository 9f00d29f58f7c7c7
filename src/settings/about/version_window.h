// The version window: which Varek this is, and the way to its manuals.
#pragma once

#include "core/forms.h"
#include "views/kit/windows/view_window.h"

class QFrame;
class QLabel;
class QListWidget;
class QPushButton;

namespace varek {

class PictureButton;

/// The version window.
class Form16 final : public ViewWindow {
 public:
  static constexpr int kNumber = 16;

  /// A missing picture throws RuntimeError 53.
  Form16();

  void ApplyLanguage();
  /// Adds the record of changes to the hidden list, one line each, the newest first. Kept for the
  /// authors: the program itself never asks for it.
  void printout();

 protected:
  void Form_Resize() override;

 private:
  QFrame* panel_;
  QLabel* version_;
  QLabel* licence_;
  QPushButton* manuals_;  ///< opens the manuals; lights up under the pointer
  PictureButton* close_;
  QListWidget* changes_;  ///< hidden
};

/// The one instance.
FormSlot<Form16>& VersionWindow();

/// Shows the version window, or raises it.
void ShowVersion();

}  // namespace varek
