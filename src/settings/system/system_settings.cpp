#include "settings/system/system_settings.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QRadioButton>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <string>

#include "core/data_center.h"
#include "link/port_search.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/guard.h"
#include "platform/system/service.h"
#include "platform/time/events.h"
#include "settings/system/digits_box.h"
#include "texts/language.h"
#include "views/kit/controls/choice_list.h"
#include "views/kit/controls/keys.h"
#include "views/kit/controls/one_line.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"
#include "views/kit/windows/save_settings.h"

namespace varek {

namespace {

// All sizes are pixels.
constexpr QSize kStartSize{560, 620};
constexpr QSize kLeastSize{520, 580};
constexpr int kMargin = 8;
constexpr int kLeastRowHeight = 28;
constexpr int kPanelPadding = 4;
constexpr int kPanelGap = 4;
constexpr int kScrollBarWidth = 14;
constexpr int kFarthest = 200;  ///< that the bar moves the panels
constexpr QSize kButtonSize{110, 30};
constexpr QSize kSearchSize{90, 26};
constexpr int kFieldWidth = 150;
constexpr int kDigitsWidth = 64;
/// What the mouse wheel moves in one notch.
constexpr int kWheelStep = 30;
constexpr int kWheelNotch = 120;

constexpr std::array<size_t, 2> kDelayTexts{texts::kSettingsComputerAfter,
                                            texts::kSettingsUpsAfter};

// Messages.
constexpr auto kWarning = platform::MessageIcon::Exclamation;
constexpr size_t kNothingFound = 2;
constexpr size_t kRestart = 3;
constexpr size_t kOrdinaryProgram = 16;
constexpr size_t kService = 17;

/// What a search leaves of its number when another one is going on.
constexpr int16_t kNoSearch = -1;

/// Two delays with switches of their own, the computer's before the UPS's.
struct SwitchedDelays {
  size_t heading;
  std::array<size_t, 2> switches;
  std::array<size_t, 2> boxes;
};
constexpr SwitchedDelays kSwitchedDelays[] = {{texts::kSettingsOnMainsFailure,
                                               {kMainsFailureComputer, kMainsFailureUps},
                                               {kMainsFailureComputerDelay, kMainsFailureUpsDelay}},
                                              {texts::kSettingsOnBatteryLow,
                                               {kBatteryLowComputer, kBatteryLowUps},
                                               {kBatteryLowComputerDelay, kBatteryLowUpsDelay}}};

/// Its characters show as asterisks, like the mask of a password that is set. The toolkit takes the
/// character over only when the sheet of a box that is polished changes.
QLineEdit* MakePasswordBox(QWidget* parent) {
  auto* box = new QLineEdit(parent);
  box->setEchoMode(QLineEdit::Password);
  box->ensurePolished();
  box->setStyleSheet(QStringLiteral("QLineEdit { lineedit-password-character: 42; }"));
  box->setFixedWidth(kFieldWidth);
  return box;
}

/// Errors are reported under `name`.
QLineEdit* MakeDigitsBox(QWidget* parent, const char* name, char least, int most) {
  auto* box = new DigitsBox(parent, name, least, most);
  box->setFixedWidth(kDigitsWidth);
  return box;
}

QGridLayout* GridOf(QFrame* panel) { return static_cast<QGridLayout*>(panel->layout()); }

}  // namespace

FormSlot<Form14>& SystemSettings() {
  static FormSlot<Form14> slot(Form14::kNumber);
  return slot;
}

void ShowSystemSettings() { SystemSettings().Get().ShowAndRaise(); }

Form14::Form14()
    : ViewWindow(kNumber, kStartSize, kLeastSize),
      rowHeight_(std::max(kLeastRowHeight, BoxHeight(*this))) {
  view_ = new QWidget(Client());
  MakePort();
  MakeWeb();
  MakePasswords();
  MakeDelays();
  MakeSwitches();
  MakeUnits();
  MakeScrollBar();
  MakeOk();
  LimitHeight();
  ApplyLanguage();
  ShowFields(PresentSettings());
  FollowChanges();
  Form_Resize();
  port_->setFocus();
}

/// The controls outlive this part of the window, and the focus leaves them then.
Form14::~Form14() { disconnect(qApp, nullptr, this, nullptr); }

QFrame* Form14::AddPanel(int rows) {
  auto* panel = new QFrame(view_);
  panel->setAutoFillBackground(true);
  panel->setBackgroundRole(QPalette::Button);
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(kMargin, kPanelPadding, kMargin, kPanelPadding);
  grid->setVerticalSpacing(0);
  grid->setColumnStretch(0, 1);
  const int top = panels_.empty() ? 0 : panels_.back()->geometry().bottom() + 1 + kPanelGap;
  panel->setGeometry(0, top, 1, rows * rowHeight_ + 2 * kPanelPadding);
  panelTops_.push_back(top);
  panels_.push_back(panel);
  return panel;
}

void Form14::AddRow(QFrame* panel, QWidget* caption, QWidget* field, size_t text) {
  QGridLayout* grid = GridOf(panel);
  const int row = grid->count() == 0 ? 0 : grid->rowCount();
  grid->setRowMinimumHeight(row, rowHeight_);
  grid->addWidget(caption, row, 0);
  if (field) grid->addWidget(field, row, 1);
  captions_.push_back({caption, field, text});
}

QCheckBox* Form14::AddCheck(size_t text) {
  QFrame* panel = AddPanel(1);
  auto* check = new QCheckBox(panel);
  AddRow(panel, check, nullptr, text);
  return check;
}

void Form14::MakePort() {
  QFrame* panel = AddPanel(1);
  port_ = new ChoiceList(panel);
  for (int i = 0; i < kPortChoices; ++i) port_->addItem(Shown(PortChoice(i)));
  search_ = new PictureButton(panel, QStringLiteral("button"), "form14 Picture1_MouseUp",
                              [this] { SearchPort(); });
  search_->setFixedSize(kSearchSize);
  AddRow(panel, new QLabel(panel), port_, texts::kSettingsPort);
  GridOf(panel)->addWidget(search_, 0, 2);
}

void Form14::MakeWeb() {
  webOn_ = AddCheck(texts::kSettingsWebOn);
  QFrame* panel = AddPanel(1);
  webPort_ = MakeDigitsBox(panel, "form14 Text1", '1', 4);
  AddRow(panel, new QLabel(panel), webPort_, texts::kSettingsWebPort);
}

void Form14::MakePasswords() {
  for (size_t i = kLogin; i <= kControlRepeat; ++i) {
    QFrame* panel = AddPanel(1);
    boxes_[i] = MakePasswordBox(panel);
    AddRow(panel, new QLabel(panel), boxes_[i], texts::kSettingsLoginPassword + i);
  }
}

void Form14::MakeDelays() {
  for (const size_t i : {0, 1}) {
    QFrame* panel = AddPanel(1);
    QLineEdit* box = boxes_[kComputerDelay + i] = MakeDigitsBox(panel, "form14 Text2", '0', 2);
    AddRow(panel, new QLabel(panel), box, texts::kSettingsComputerDelay + i);
  }
  for (const auto& [heading, switches, boxes] : kSwitchedDelays) {
    QFrame* panel = AddPanel(3);
    AddRow(panel, new QLabel(panel), nullptr, heading);
    for (const size_t i : {0, 1}) {
      QCheckBox* check = delaySwitches_[switches[i]] = new QCheckBox(panel);
      QLineEdit* box = boxes_[boxes[i]] = MakeDigitsBox(panel, "form14 Text2", '0', 2);
      AddRow(panel, check, box, kDelayTexts[i]);
    }
  }
}

void Form14::MakeSwitches() {
  autoSave_ = AddCheck(texts::kSettingsAutosave);
  eventPopup_ = AddCheck(texts::kSettingsPopup);
}

void Form14::MakeUnits() {
  QFrame* panel = AddPanel(1);
  celsius_ = new QRadioButton(panel);
  fahrenheit_ = new QRadioButton(panel);
  AddRow(panel, new QLabel(panel), nullptr, texts::kSettingsTemperatureUnit);
  GridOf(panel)->addWidget(celsius_, 0, 1);
  GridOf(panel)->addWidget(fahrenheit_, 0, 2);
  captions_.push_back({celsius_, nullptr, texts::kSettingsCelsius});
  captions_.push_back({fahrenheit_, nullptr, texts::kSettingsFahrenheit});
}

void Form14::MakeScrollBar() {
  scrollBar_ = new QScrollBar(Qt::Vertical, Client());
  scrollBar_->setRange(1, kFarthest);
  scrollBar_->setSingleStep(kWheelStep);
  scrollBar_->setPageStep(4 * kWheelStep);
}

void Form14::MakeOk() {
  QFrame* panel = AddPanel(1);
  status_ = new QLabel(panel);
  GridOf(panel)->addWidget(status_, 0, 0);
  ok_ = new PictureButton(Client(), QStringLiteral("button"), "form14 Picture6_Click",
                          [this] { Accept(); });
}

void Form14::LimitHeight() {
  const int view = panels_.back()->geometry().bottom() + 1 - kFarthest;
  const int around = kFrameTop + 3 * kMargin + kButtonSize.height() + kFrameEdge;
  setMinimumHeight(std::max(minimumHeight(), view + around));
}

/// Only from here on: filling the fields is no change of the person's.
void Form14::FollowChanges() {
  connect(webOn_, &QCheckBox::toggled, this, [this] { restartNeeded_ = true; });
  connect(webPort_, &QLineEdit::textChanged, this, [this] { restartNeeded_ = true; });
  connect(scrollBar_, &QScrollBar::valueChanged, this,
          [this] { platform::Guarded("form14 VScroll1_Change", [this] { MovePanels(); }); });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* now) {
    platform::Guarded("form14 GotFocus", [this, now] { BringIntoView(now); });
  });
}

void Form14::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(texts::kSettingsCaption));
  for (const Caption& caption : captions_) {
    caption.control->setProperty("text", Shown(caption.text));
    if (caption.field) caption.field->setAccessibleName(Shown(caption.text));
  }
  search_->SetText(Shown(texts::kSettingsSearch));
  ok_->SetText(Shown(texts::kSettingsOk));
  status_->setText(Shown(SettingsMessage[platform::RunsAsService() ? kService : kOrdinaryProgram]));
}

void Form14::Form_Resize() {
  const QSize client = Client()->size();
  const int bottom = client.height() - kMargin - kButtonSize.height();
  const int scrollLeft = client.width() - kMargin - kScrollBarWidth;
  ok_->setGeometry(
      QRect({scrollLeft + kScrollBarWidth - kButtonSize.width(), bottom}, kButtonSize));
  view_->setGeometry(kMargin, kMargin, scrollLeft - 2 * kMargin, bottom - 2 * kMargin);
  scrollBar_->setGeometry(scrollLeft, kMargin, kScrollBarWidth, view_->height());
  for (QFrame* panel : panels_) panel->resize(view_->width(), panel->height());
}

void Form14::MovePanels() {
  for (size_t i = 0; i < panels_.size(); ++i)
    panels_[i]->move(0, panelTops_[i] - scrollBar_->value());
}

/// The keyboard reaches the fields of a panel that is scrolled away, and so does a refused OK.
void Form14::BringIntoView(const QWidget* control) {
  if (!control || !view_->isAncestorOf(control)) return;
  const int top = control->mapTo(view_, QPoint()).y();
  const int below = top + control->height() + kPanelPadding - view_->height();
  if (top < 0) scrollBar_->setValue(scrollBar_->value() + top - kPanelPadding);
  if (below > 0) scrollBar_->setValue(scrollBar_->value() + below);
}

void Form14::keyPressEvent(QKeyEvent* event) {
  if (!IsEnterKey(event->key())) return ViewWindow::keyPressEvent(event);
  if (event->isAutoRepeat()) return;
  platform::Post("form14 Picture6_Click", [form = QPointer(this)] {
    if (form) form->Accept();
  });
}

void Form14::wheelEvent(QWheelEvent* event) {
  Enter("VScroll1_Scroll", [&] {
    scrollBar_->setValue(scrollBar_->value() - event->angleDelta().y() * kWheelStep / kWheelNotch);
  });
}

void Form14::ShowFields(const SettingsFields& fields) {
  port_->setCurrentIndex(port_->findText(Shown(fields.port)));
  webOn_->setChecked(fields.webEnabled);
  webPort_->setText(Shown(fields.webPort));
  for (size_t i = 0; i < kSettingsBoxes; ++i) boxes_[i]->setText(Shown(fields.boxes[i]));
  autoSave_->setChecked(fields.autoSave);
  for (size_t i = 0; i < kDelaySwitches; ++i) delaySwitches_[i]->setChecked(fields.delaysOn[i]);
  eventPopup_->setChecked(fields.eventPopup);
  (fields.celsius ? celsius_ : fahrenheit_)->setChecked(true);
}

SettingsFields Form14::Fields() const {
  SettingsFields fields;
  fields.port = port_->currentText().toStdString();
  fields.webEnabled = webOn_->isChecked();
  fields.webPort = OneLineOf(*webPort_);
  for (size_t i = 0; i < kSettingsBoxes; ++i) fields.boxes[i] = OneLineOf(*boxes_[i]);
  fields.autoSave = autoSave_->isChecked();
  for (size_t i = 0; i < kDelaySwitches; ++i) fields.delaysOn[i] = delaySwitches_[i]->isChecked();
  fields.eventPopup = eventPopup_->isChecked();
  fields.celsius = celsius_->isChecked();
  return fields;
}

void Form14::Refuse(const SettingsFault& fault) {
  QLineEdit* box = fault.box == kWebPortBox ? webPort_ : boxes_[fault.box];
  box->selectAll();
  box->setFocus();
  BringIntoView(box);
  platform::Tell(this, {.text = SettingsMessage[fault.message], .icon = kWarning});
}

void Form14::Accept() {
  if (const auto fault = ApplySettings(Fields())) return Refuse(*fault);
  if (!SaveSettings("form14 Picture6_Click", this)) return;
  if (!restartNeeded_) {
    close();
    return;
  }
  platform::Tell(this, {.text = SettingsMessage[kRestart]}, [this] { close(); });
}

/// The search lets other handlers run, and the window may go meanwhile.
void Form14::SearchPort() {
  const QPointer<Form14> form(this);
  int16_t port = kNoSearch;
  findport(port);
  if (port == kNoSearch) return;
  if (port == 0) {
    platform::Tell(form, {.text = SettingsMessage[kNothingFound], .icon = kWarning});
    return;
  }
  SetPort(port);
  if (form) port_->setCurrentIndex(ChoiceOfPort(port));
}

}  // namespace varek
