#include "settings/notification/mail_settings.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "platform/text/text.h"
#include "records/notification.h"
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
  Text1 = AddField("Text1", AddCaption(texts::kMailServer), DataCenter.settings.MailServer, 0, 0);
  Text3 = AddField("Text3", AddCaption(texts::kMailSenderName), DataCenter.settings.MailSenderName,
                   1, 0);
  Text2 = AddField("Text2", AddCaption(texts::kMailSenderAddress),
                   DataCenter.settings.MailSenderAddress, 1, 2);
  Text5 = AddField("Text5", AddCaption(texts::kMailRecipientName),
                   DataCenter.settings.MailRecipientName, 2, 0);
  Text4 = AddField("Text4", AddCaption(texts::kMailRecipientAddress),
                   DataCenter.settings.MailRecipientAddress, 2, 2);
  Text6 = AddField("Text6", AddCaption(texts::kMailSubject), DataCenter.settings.MailSubject, 3, 0);
  Fields().addWidget(AddHint(texts::kMailSubjectHint), 3, 2, 1, 2);
  Fields().setColumnStretch(1, 2);
  Fields().setColumnStretch(3, 3);
  AddFootnote(texts::kMailTestHint);
  CompleteControls();
}

int Form5::SendTest() {
  return StartMail({Trimmed(Text1), Trimmed(Text3), Trimmed(Text2), Trimmed(Text5), Trimmed(Text4)},
                   Trimmed(Text6), "TEST OK", SendMode::Test);
}

}  // namespace varek
