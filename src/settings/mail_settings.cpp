#include "settings/mail_settings.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "platform/text.h"
#include "records/notification.h"

namespace varek {

namespace {

constexpr size_t kCaptionText = 125;
constexpr size_t kServerText = 126;
constexpr size_t kSenderNameText = 127;
constexpr size_t kSenderAddressText = 128;
constexpr size_t kRecipientNameText = 129;
constexpr size_t kRecipientAddressText = 130;
constexpr size_t kSubjectText = 161;
constexpr size_t kEventsText = 162;
constexpr size_t kSubjectHint = 163;
constexpr size_t kTestHint = 164;

}  // namespace

FormSlot<Form5>& MailSettings() {
  static FormSlot<Form5> slot(Form5::kNumber);
  return slot;
}

void ShowMailSettings() { MailSettings().Get().ShowAndRaise(); }

Form5::Form5()
    : NotificationWindow({kNumber, kCaptionText, kEventsText, DataCenter.MailEventEnable,
                          DataCenter.MailEventText}) {
  Text1 = AddField("Text1", AddCaption(kServerText), DataCenter.MailServer, 0, 0);
  Text3 = AddField("Text3", AddCaption(kSenderNameText), DataCenter.MailSenderName, 1, 0);
  Text2 = AddField("Text2", AddCaption(kSenderAddressText), DataCenter.MailSenderAddress, 1, 2);
  Text5 = AddField("Text5", AddCaption(kRecipientNameText), DataCenter.MailRecipientName, 2, 0);
  Text4 =
      AddField("Text4", AddCaption(kRecipientAddressText), DataCenter.MailRecipientAddress, 2, 2);
  Text6 = AddField("Text6", AddCaption(kSubjectText), DataCenter.MailSubject, 3, 0);
  Fields().addWidget(AddHint(kSubjectHint), 3, 2, 1, 2);
  Fields().setColumnStretch(1, 2);
  Fields().setColumnStretch(3, 3);
  AddFootnote(kTestHint);
  CompleteControls();
}

int Form5::SendTest() {
  return StartMail({Trimmed(Text1), Trimmed(Text3), Trimmed(Text2), Trimmed(Text5), Trimmed(Text4)},
                   Trimmed(Text6), "TEST OK", SendMode::Test);
}

}  // namespace varek
