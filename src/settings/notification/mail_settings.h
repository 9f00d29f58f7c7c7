// The e-mail settings: the mail account, and for each event whether a mail goes out and with what
// text.
#pragma once

#include "core/forms.h"
#include "settings/notification/notification_window.h"

namespace varek {

/// Its controls are found by their names as object names.
class Form5 final : public NotificationWindow {
 public:
  static constexpr int kNumber = 5;

  Form5();

 protected:
  int SendTest() override;

 private:
  QLineEdit* Text1;  ///< mail server
  QLineEdit* Text3;  ///< sender's name
  QLineEdit* Text2;  ///< sender's address
  QLineEdit* Text5;  ///< recipient's name
  QLineEdit* Text4;  ///< recipient's address
  QLineEdit* Text6;  ///< subject of the test mail
};

/// The one instance.
FormSlot<Form5>& MailSettings();

/// Shows the e-mail settings, or raises them.
void ShowMailSettings();

}  // namespace varek
