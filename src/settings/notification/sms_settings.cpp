#include "settings/notification/sms_settings.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

#include "platform/desktop/message_box.h"
#include "platform/errors/guard.h"
#include "platform/time/events.h"
#include "records/notices/notification.h"
#include "settings/notification/sms_text.h"
#include "texts/text_numbers.h"
#include "views/kit/controls/choice_list.h"

namespace varek {

namespace {

/// By the number that the sender knows them by.
constexpr std::array<const char*, 2> kGateways{"www.every8d.com", "www.clickatell.com"};
constexpr int16_t kClickatell = 1;

}  // namespace

FormSlot<Form9>& SmsSettings() {
  static FormSlot<Form9> slot(Form9::kNumber);
  return slot;
}

void ShowSmsSettings() { SmsSettings().Get().ShowAndRaise(); }

Form9::Form9()
    : NotificationWindow({kNumber, texts::kSmsCaption, texts::kSmsEvents,
                          DataCenter.settings.SmsEventEnable, DataCenter.settings.SmsEventText}) {
  MakeGateway();
  MakeFields();
  AddFootnote(texts::kSmsLimitHint);
  AddFootnote(texts::kSmsChargeHint);
  connect(Grid().EditBox(), &QLineEdit::textChanged, this,
          [this] { platform::Guarded("form9 Text7_Change", [this] { LimitText(); }); });
  CompleteControls();
}

void Form9::MakeGateway() {
  gateways_ = new ChoiceList(Client());
  for (const char* address : kGateways) gateways_->addItem(QString::fromLatin1(address));
  QLabel* caption = AddCaption(texts::kSmsGateway);
  caption->setBuddy(gateways_);
  Fields().addWidget(caption, 0, 0);
  Fields().addWidget(gateways_, 0, 1);
  Fields().addWidget(AddHint(texts::kSmsGatewayHint), 0, 2);
  connect(gateways_, &QComboBox::currentIndexChanged, this,
          [this] { platform::Guarded("form9 Combo1_Click", [this] { ChooseGateway(); }); });
}

void Form9::MakeFields() {
  account_ = AddField(AddCaption(texts::kSmsAccount), DataCenter.settings.SmsAccount, 1, 0);
  password_ = AddField(AddCaption(texts::kSmsPassword), DataCenter.settings.SmsPassword, 2, 0);
  Fields().addWidget(AddHint(texts::kSmsPasswordHint), 2, 2);
  number_ = AddField(AddCaption(texts::kSmsNumber), DataCenter.settings.SmsNumber, 3, 0);
  Fields().addWidget(AddHint(texts::kSmsNumberHint), 3, 2);
  auto* caption = new QLabel(QStringLiteral("api_id"), Client());
  apiId_ = AddField(caption, DataCenter.settings.SmsApiId, 4, 0);
  QLabel* hint = AddHint(texts::kSmsApiIdHint);
  Fields().addWidget(hint, 4, 2);
  apiIdRow_ = {caption, apiId_, hint};
  Fields().setColumnStretch(1, 1);
  Fields().setColumnStretch(2, 1);
}

/// A gateway that the list does not have shows as the first.
void Form9::ShowSettings() {
  NotificationWindow::ShowSettings();
  gateways_->setCurrentIndex(DataCenter.settings.SmsGateway == kClickatell ? kClickatell : 0);
  ChooseGateway();
}

void Form9::TakeSettings() {
  NotificationWindow::TakeSettings();
  DataCenter.settings.SmsGateway = gateway_;
}

/// A hidden api_id keeps its value.
void Form9::ChooseGateway() {
  gateway_ = static_cast<int16_t>(gateways_->currentIndex());
  for (QWidget* control : apiIdRow_) control->setVisible(gateway_ == kClickatell);
}

/// The message comes from the event loop: the window, and the box whose change is handled, could go
/// while it is shown.
void Form9::LimitText() {
  QLineEdit* box = Grid().EditBox();
  const std::u16string text = box->text().toStdU16String();
  const std::u16string fitting = FitSmsText(text);
  if (fitting == text) return;
  box->setText(QString::fromStdU16String(fitting));
  Tell("Too Much Word.");
}

int Form9::SendTest() {
  const std::string apiId = gateway_ == kClickatell ? Trimmed(apiId_) : "";
  return SendMsg(gateway_, Trimmed(account_), Trimmed(password_), Trimmed(number_), "Send Test OK",
                 apiId, "T");
}

}  // namespace varek
