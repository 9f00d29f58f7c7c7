// The SMS settings: the gateway and the account at it, the destination, and for each event whether
// a text message goes out and with what text.
#pragma once

#include "core/forms.h"
#include "settings/notification/notification_window.h"

class QComboBox;

namespace varek {

/// Its controls are found by their names as object names.
class Form9 final : public NotificationWindow {
 public:
  static constexpr int kNumber = 9;

  Form9();

 protected:
  void ShowSettings() override;
  void TakeSettings() override;
  int SendTest() override;

 private:
  void MakeGateway();
  void MakeFields();
  void Combo1_Click();
  void Text7_Change();

  int16_t gateway_ = 0;  ///< as chosen: 0 every8d, 1 Clickatell

  QComboBox* Combo1 = nullptr;
  QLineEdit* Text3 = nullptr;       ///< account
  QLineEdit* Text5 = nullptr;       ///< password, shown in the clear
  QLineEdit* Text6 = nullptr;       ///< destination number
  QLineEdit* Text1 = nullptr;       ///< api_id
  std::vector<QWidget*> apiIdRow_;  ///< Text1 with its labels
};

/// The one instance.
FormSlot<Form9>& SmsSettings();

/// Shows the SMS settings, or raises them.
void ShowSmsSettings();

}  // namespace varek
