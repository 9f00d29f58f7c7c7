// The SMS settings: the gateway and the account at it, the destination, and for each event whether
// a text message goes out and with what text.
#pragma once

#include "core/forms.h"
#include "settings/notification/notification_window.h"

class QComboBox;

namespace varek {

/// The window of the SMS settings.
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
  void ChooseGateway();
  void LimitText();

  int16_t gateway_ = 0;  ///< as chosen: 0 every8d, 1 Clickatell

  QComboBox* gateways_ = nullptr;
  QLineEdit* account_ = nullptr;   ///< at the gateway
  QLineEdit* password_ = nullptr;  ///< shown in the clear
  QLineEdit* number_ = nullptr;    ///< destination number
  QLineEdit* apiId_ = nullptr;
  std::vector<QWidget*> apiIdRow_;  ///< the box with its labels
};

/// The one instance.
FormSlot<Form9>& SmsSettings();

/// Shows the SMS settings, or raises them.
void ShowSmsSettings();

}  // namespace varek
