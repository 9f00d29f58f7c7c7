#include "settings/notification/notification_window.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "platform/system/process.h"
#include "platform/text/text.h"
#include "texts/text_numbers.h"
#include "views/kit/controls/keys.h"
#include "views/kit/controls/one_line.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/push_button.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"
#include "views/kit/windows/save_settings.h"

namespace varek {

namespace {

constexpr QSize kStartSize{780, 660};
constexpr QSize kLeastSize{720, 480};
constexpr int kMargin = 12;
constexpr QSize kButtonSize{150, 32};
constexpr int kButtonEdges = 10;  ///< padding and border, above and below

constexpr int kTestInterval = 200;

std::string Place(int form, const char* handler) {
  return "form" + std::to_string(form) + " " + handler;
}

/// The process of the last test of a window, which may be closed and opened again meanwhile.
int& LastTest(int form) {
  static std::array<int, 18> tests{};
  return tests.at(static_cast<size_t>(form));
}

}  // namespace

NotificationWindow::NotificationWindow(const NotificationSettings& settings)
    : ViewWindow(settings.form, kStartSize, kLeastSize),
      settings_(settings),
      fields_(new QGridLayout),
      events_(new EventGrid(Client(), "form" + std::to_string(settings.form))),
      footnotes_(new QVBoxLayout),
      testTimer_(Place(settings.form, "test"), [this] { ShowTestState(); }) {
  MakeButtons();
  LayoutControls();
}

NotificationWindow::~NotificationWindow() = default;

void NotificationWindow::MakeButtons() {
  sendTest_ = new PictureButton(Client(), QStringLiteral("button"),
                                Place(settings_.form, "Picture3_MouseUp"), [this] { StartTest(); });
  sendTest_->setFixedSize(kButtonSize);
  ok_ = MakeButton(Client(), Place(settings_.form, "Command2_Click"), [this] { Accept(); });
  ok_->setFixedSize(kButtonSize.width(),
                    std::max(kButtonSize.height(), LineHeight(*ok_) + kButtonEdges));
}

void NotificationWindow::LayoutControls() {
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(sendTest_);
  buttons->addStretch();
  buttons->addWidget(ok_);
  auto* column = new QVBoxLayout(Client());
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->addLayout(fields_);
  column->addWidget(AddCaption(settings_.eventsText));
  column->addWidget(events_, 1);
  column->addLayout(footnotes_);
  AddFootnote(texts::kNotifyToggleHint);
  AddFootnote(texts::kNotifyEditHint);
  column->addLayout(buttons);
}

QLabel* NotificationWindow::AddCaption(size_t number) {
  auto* label = new QLabel(Client());
  captions_.push_back({label, number});
  return label;
}

QLabel* NotificationWindow::AddHint(size_t number) {
  QLabel* label = AddCaption(number);
  label->setWordWrap(true);
  label->setStyleSheet(QStringLiteral("color: ") + ToQColor(palette::kMuted).name());
  return label;
}

QLineEdit* NotificationWindow::AddField(QLabel* caption, std::string& setting, int row,
                                        int column) {
  auto* box = new QLineEdit(Client());
  caption->setBuddy(box);
  fields_->addWidget(caption, row, column);
  fields_->addWidget(box, row, column + 1);
  boxes_.push_back({box, &setting});
  return box;
}

void NotificationWindow::AddFootnote(size_t number) { footnotes_->addWidget(AddHint(number)); }

/// The boxes are made last, but come first for a person.
void NotificationWindow::CompleteControls() {
  setTabOrder(boxes_.back().box, events_);
  setTabOrder(events_, events_->EditBox());
  setTabOrder(events_->EditBox(), sendTest_);
  setTabOrder(sendTest_, ok_);
  boxes_.front().box->setFocus();
  ApplyLanguage();
  ShowSettings();
}

void NotificationWindow::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(settings_.captionText));
  for (const auto& [label, number] : captions_) label->setText(Shown(number));
  events_->ApplyLanguage();
  events_->setAccessibleName(Shown(settings_.eventsText));
  ShowTestState();
  ok_->setText(Shown(texts::kSettingsOk));
}

void NotificationWindow::ShowSettings() {
  for (const auto& [box, setting] : boxes_) box->setText(Shown(*setting));
  events_->ShowMessages(settings_.enable, settings_.text);
}

void NotificationWindow::TakeSettings() {
  for (const auto& [box, setting] : boxes_) *setting = OneLineOf(*box);
  events_->TakeMessages(settings_.enable, settings_.text);
}

/// A message box, the sender's window or another program takes the focus for a moment; what was
/// typed must outlive that. Another window of ours may have changed what is shown here.
void NotificationWindow::Form_Activate() {
  if (!refills_) return;
  refills_ = false;
  ShowSettings();
}

void NotificationWindow::changeEvent(QEvent* event) {
  ViewWindow::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || isActiveWindow()) return;
  if (dynamic_cast<WindowFrame*>(QApplication::activeWindow())) refills_ = true;
}

/// Enter in a box is the OK button.
void NotificationWindow::keyPressEvent(QKeyEvent* event) {
  if (!IsEnterKey(event->key())) return ViewWindow::keyPressEvent(event);
  if (!event->isAutoRepeat()) ok_->click();
}

std::string NotificationWindow::Trimmed(const QLineEdit* box) {
  return platform::Trim(OneLineOf(*box));
}

void NotificationWindow::StartTest() {
  int& test = LastTest(settings_.form);
  if (!platform::IsRunning(test)) test = SendTest();
  ShowTestState();
}

void NotificationWindow::ShowTestState() {
  const bool running = platform::IsRunning(LastTest(settings_.form));
  sendTest_->SetText(Shown(running ? texts::kPleaseWait : texts::kNotifySendTest));
  testTimer_.SetInterval(running ? kTestInterval : 0);
}

void NotificationWindow::Accept() {
  TakeSettings();
  if (SaveSettings(Place(settings_.form, "Command2_Click"), this)) close();
}

}  // namespace varek
