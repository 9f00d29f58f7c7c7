#include "settings/notification/mail_settings.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "platform/text/text.h"
#include "records/notices/notification.h"
#include "texts/text_numbers.h"

namespace varek {

FormSlot<Form5>& MailSettings() {
  static FormSlot<Form5> slot(Form5::kNumber);
  return slot;
}

void ShowMailSettings() { MailSettings().Get().ShowAndRaise(); }

Form5::Form5()
    : NotificationWindow({kNumber, texts::kMailCaption, texts::kMailEvents,
                          DataCenter.settings.MailEventEnable, DataCenter.settings.MailEventText}) {
  server_ = AddField(AddCaption(texts::kMailServer), DataCenter.settings.MailServer, 0, 0);
  senderName_ =
      AddField(AddCaption(texts::kMailSenderName), DataCenter.settings.MailSenderName, 1, 0);
  senderAddress_ =
      AddField(AddCaption(texts::kMailSenderAddress), DataCenter.settings.MailSenderAddress, 1, 2);
  recipientName_ =
      AddField(AddCaption(texts::kMailRecipientName), DataCenter.settings.MailRecipientName, 2, 0);
  recipientAddress_ = AddField(AddCaption(texts::kMailRecipientAddress),
                               DataCenter.settings.MailRecipientAddress, 2, 2);
  subject_ = AddField(AddCaption(texts::kMailSubject), DataCenter.settings.MailSubject, 3, 0);
  Fields().addWidget(AddHint(texts::kMailSubjectHint), 3, 2, 1, 2);
  Fields().setColumnStretch(1, 2);
  Fields().setColumnStretch(3, 3);
  AddFootnote(texts::kMailTestHint);
  CompleteControls();
}

int Form5::SendTest() {
  return StartMail({Trimmed(server_), Trimmed(senderName_), Trimmed(senderAddress_),
                    Trimmed(recipientName_), Trimmed(recipientAddress_)},
                   Trimmed(subject_), "TEST OK", SendMode::Test);
}

}  // namespace varek
