// The system settings: the UPS's port, the web console and its passwords, the delays of a shutdown,
// the temperature unit and a few switches. Nothing changes until OK, but for the port that the
// search finds.
#pragma once

#include <array>
#include <vector>

#include "core/forms.h"
#include "settings/system/settings_form.h"
#include "views/kit/windows/view_window.h"

class QCheckBox;
class QComboBox;
class QFrame;
class QLabel;
class QLineEdit;
class QRadioButton;
class QScrollBar;

namespace varek {

class PictureButton;

/// The window of the system settings.
class Form14 final : public ViewWindow {
 public:
  static constexpr int kNumber = 14;

  /// Shows the present settings; a missing picture throws RuntimeError 53.
  Form14();
  ~Form14() override;

  void ApplyLanguage();

 protected:
  void Form_Resize() override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  /// A control that shows a numbered text, and the field that it names; null where it is its own.
  struct Caption {
    QWidget* control;
    QWidget* field;
    size_t text;
  };

  void MakePort();
  void MakeWeb();
  void MakePasswords();
  void MakeDelays();
  void MakeSwitches();
  void MakeUnits();
  void MakeScrollBar();
  void MakeOk();
  /// No smaller window than one in which the bar reaches the last panel.
  void LimitHeight();
  void FollowChanges();
  /// The next of the fifteen panels, below the former one.
  QFrame* AddPanel(int rows);
  /// `caption` on the left of the panel's next row, with text `text`, and `field` on its right.
  void AddRow(QFrame* panel, QWidget* caption, QWidget* field, size_t text);
  QCheckBox* AddCheck(size_t text);

  void ShowFields(const SettingsFields& fields);
  SettingsFields Fields() const;
  void Refuse(const SettingsFault& fault);
  void BringIntoView(const QWidget* control);

  void SearchPort();
  void Accept();
  void MovePanels();

  bool restartNeeded_ = false;
  int rowHeight_;
  std::vector<Caption> captions_;
  std::vector<int> panelTops_;  ///< at open

  QWidget* view_ = nullptr;  ///< the area in which the panels move
  std::vector<QFrame*> panels_;
  QScrollBar* scrollBar_ = nullptr;
  QComboBox* port_ = nullptr;
  PictureButton* search_ = nullptr;
  QCheckBox* webOn_ = nullptr;
  QLineEdit* webPort_ = nullptr;
  std::array<QLineEdit*, kSettingsBoxes> boxes_{};          ///< by SettingsBox
  std::array<QCheckBox*, kDelaySwitches> delaySwitches_{};  ///< by DelaySwitch
  QCheckBox* autoSave_ = nullptr;
  QCheckBox* eventPopup_ = nullptr;
  QRadioButton* celsius_ = nullptr;
  QRadioButton* fahrenheit_ = nullptr;
  QLabel* status_ = nullptr;  ///< whether this is a service
  PictureButton* ok_ = nullptr;
};

/// The one instance.
FormSlot<Form14>& SystemSettings();

/// Shows the system settings, or raises them.
void ShowSystemSettings();

}  // namespace varek
