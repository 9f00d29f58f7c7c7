#include "settings/language_picker/language_picker.h"

#include "core/data_center.h"
#include "texts/language.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/looks/shown.h"
#include "views/kit/windows/save_settings.h"

namespace varek {

namespace {

/// For readers of the screen; the pictures show the same.
constexpr const char* kNames[] = {"English", "繁體中文", "简体中文"};

constexpr QSize kPictureSize{240, 64};
constexpr int kGap = 12;
constexpr QSize kClientSize{kPictureSize.width() + 2 * kGap, 3 * kPictureSize.height() + 4 * kGap};

/// Windows that note in the live state that they are open.
constexpr int kNotedForms[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 14};
/// Web log, version and manuals: asked without a note, which passes over those that are closed.
constexpr int kOtherForms[] = {15, 16, 17};

void RetitleOpenWindows() {
  for (const int form : kNotedForms)
    if (DataCenter.FormOpen[static_cast<size_t>(form)]) language(form);
  for (const int form : kOtherForms) language(form);
}

}  // namespace

FormSlot<Form7>& LanguagePicker() {
  static FormSlot<Form7> slot(Form7::kNumber);
  return slot;
}

void ShowLanguagePicker() { LanguagePicker().Get().ShowAndRaise(); }

/// Loading the texts unloads the picker.
void ChooseLanguage(int16_t index) {
  SetLanguageIndex(index);
  Loadlanguage(DataCenter.settings.LanguageIndex);
  RetitleOpenWindows();
  SaveSettings("form7 Picture1_Click", nullptr);
}

Form7::Form7() : ViewWindow(kNumber, kClientSize, kClientSize) {
  for (size_t i = 0; i < languages_.size(); ++i) {
    const auto index = static_cast<int16_t>(i);
    languages_[i] = new PictureButton(Client(), QStringLiteral("language%1").arg(index),
                                      "form7 Picture1_Click", [index] { ChooseLanguage(index); });
    languages_[i]->setAccessibleName(QString::fromUtf8(kNames[i]));
  }
  Form7::Form_Resize();
  ApplyLanguage();
  languages_[static_cast<size_t>(DataCenter.settings.LanguageIndex) % languages_.size()]
      ->setFocus();
}

void Form7::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(texts::kLanguageCaption));
}

/// The pictures keep their size, one below the other in the middle.
void Form7::Form_Resize() {
  QRect column(QPoint(), kClientSize);
  column.moveCenter(Client()->rect().center());
  QPoint corner = column.topLeft() + QPoint(kGap, kGap);
  for (PictureButton* picture : languages_) {
    picture->setGeometry(QRect(corner, kPictureSize));
    corner.ry() += kPictureSize.height() + kGap;
  }
}

}  // namespace varek
