// The e-mail settings: the mail account, and for each event whether a mail goes out and with what
// text.
#pragma once

#include "core/forms.h"
#include "settings/notification/notification_window.h"

namespace varek {

/// The window of the e-mail settings.
class Form5 final : public NotificationWindow {
 public:
  static constexpr int kNumber = 5;

  Form5();

 protected:
  int SendTest() override;

 private:
  QLineEdit* server_;
  QLineEdit* senderName_;
  QLineEdit* senderAddress_;
  QLineEdit* recipientName_;
  QLineEdit* recipientAddress_;
  QLineEdit* subject_;  ///< subject of the test mail
};

/// The one instance.
FormSlot<Form5>& MailSettings();

/// Shows the e-mail settings, or raises them.
void ShowMailSettings();

}  // namespace varek
