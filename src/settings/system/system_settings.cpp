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
#include "core/save_settings.h"
#include "link/port_search.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/guard.h"
#include "platform/system/service.h"
#include "platform/time/events.h"
#include "settings/system/digits_box.h"
#include "texts/language.h"
#include "views/kit/controls/choice_list.h"
#include "views/kit/controls/one_line.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/style.h"

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
  std::array<size_t, 2> checks;
  std::array<size_t, 2> boxes;
};
constexpr SwitchedDelays kSwitchedDelays[] = {{texts::kSettingsOnMainsFailure, {0, 1}, {6, 7}},
                                              {texts::kSettingsOnBatteryLow, {2, 3}, {9, 8}}};

QString Text(size_t number) { return QString::fromStdString(LangText[number]); }

template <typename Control>
Control* Named(Control* control, const char* name) {
  control->setObjectName(QString::fromLatin1(name));
  return control;
}

/// Its characters show as asterisks, like the mask of a password that is set. The toolkit takes the
/// character over only when the sheet of a box that is polished changes.
QLineEdit* MakePasswordBox(QWidget* parent) {
  auto* box = Named(new QLineEdit(parent), "Text2");
  box->setEchoMode(QLineEdit::Password);
  box->ensurePolished();
  box->setStyleSheet(QStringLiteral("QLineEdit { lineedit-password-character: 42; }"));
  box->setFixedWidth(kFieldWidth);
  return box;
}

QLineEdit* MakeDigitsBox(QWidget* parent, const char* name, char least, int most) {
  auto* box = Named(new DigitsBox(parent, std::string("form14 ") + name, least, most), name);
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
  DataCenter.FormOpen[kNumber] = kSet;
  ShowFields(PresentSettings());
  FollowChanges();
  Form_Resize();
  Combo1->setFocus();
}

/// The controls outlive this part of the window, and the focus leaves them then.
Form14::~Form14() {
  disconnect(qApp, nullptr, this, nullptr);
  DataCenter.FormOpen[kNumber] = kClear;
}

QFrame* Form14::AddPanel(int rows) {
  QFrame* panel = Named(new QFrame(view_), "Picture12");
  panel->setAutoFillBackground(true);
  panel->setBackgroundRole(QPalette::Button);
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(kMargin, kPanelPadding, kMargin, kPanelPadding);
  grid->setVerticalSpacing(0);
  grid->setColumnStretch(0, 1);
  const int top = Picture12.empty() ? 0 : Picture12.back()->geometry().bottom() + 1 + kPanelGap;
  panel->setGeometry(0, top, 1, rows * rowHeight_ + 2 * kPanelPadding);
  panelTops_.push_back(top);
  Picture12.push_back(panel);
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

QCheckBox* Form14::AddCheck(const char* name, size_t text) {
  QFrame* panel = AddPanel(1);
  auto* check = Named(new QCheckBox(panel), name);
  AddRow(panel, check, nullptr, text);
  return check;
}

void Form14::MakePort() {
  QFrame* panel = AddPanel(1);
  Combo1 = Named(new ChoiceList(panel), "Combo1");
  for (int i = 0; i < kPortChoices; ++i) Combo1->addItem(QString::fromStdString(PortChoice(i)));
  Picture1 = Named(new PictureButton(panel, QStringLiteral("button"), "form14 Picture1_MouseUp",
                                     [this] { Picture1_Click(); }),
                   "Picture1");
  Picture1->setFixedSize(kSearchSize);
  AddRow(panel, new QLabel(panel), Combo1, texts::kSettingsPort);
  GridOf(panel)->addWidget(Picture1, 0, 2);
}

void Form14::MakeWeb() {
  Check1 = AddCheck("Check1", texts::kSettingsWebOn);
  QFrame* panel = AddPanel(1);
  Text1 = MakeDigitsBox(panel, "Text1", '1', 4);
  AddRow(panel, new QLabel(panel), Text1, texts::kSettingsWebPort);
}

void Form14::MakePasswords() {
  for (size_t i = 0; i < 4; ++i) {
    QFrame* panel = AddPanel(1);
    Text2[i] = MakePasswordBox(panel);
    AddRow(panel, new QLabel(panel), Text2[i], texts::kSettingsLoginPassword + i);
  }
}

void Form14::MakeDelays() {
  for (const size_t i : {0, 1}) {
    QFrame* panel = AddPanel(1);
    Text2[4 + i] = MakeDigitsBox(panel, "Text2", '0', 2);
    AddRow(panel, new QLabel(panel), Text2[4 + i], texts::kSettingsComputerDelay + i);
  }
  for (const auto& [heading, checks, boxes] : kSwitchedDelays) {
    QFrame* panel = AddPanel(3);
    AddRow(panel, new QLabel(panel), nullptr, heading);
    for (const size_t i : {0, 1}) {
      QCheckBox* check = Check3[checks[i]] = Named(new QCheckBox(panel), "Check3");
      QLineEdit* box = Text2[boxes[i]] = MakeDigitsBox(panel, "Text2", '0', 2);
      AddRow(panel, check, box, kDelayTexts[i]);
    }
  }
}

void Form14::MakeSwitches() {
  Check2 = AddCheck("Check2", texts::kSettingsAutosave);
  Check4 = AddCheck("Check4", texts::kSettingsPopup);
}

void Form14::MakeUnits() {
  QFrame* panel = AddPanel(1);
  Option1 = Named(new QRadioButton(panel), "Option1");
  Option2 = Named(new QRadioButton(panel), "Option2");
  AddRow(panel, new QLabel(panel), nullptr, texts::kSettingsTemperatureUnit);
  GridOf(panel)->addWidget(Option1, 0, 1);
  GridOf(panel)->addWidget(Option2, 0, 2);
  captions_.push_back({Option1, nullptr, texts::kSettingsCelsius});
  captions_.push_back({Option2, nullptr, texts::kSettingsFahrenheit});
}

void Form14::MakeScrollBar() {
  VScroll1 = Named(new QScrollBar(Qt::Vertical, Client()), "VScroll1");
  VScroll1->setRange(1, kFarthest);
  VScroll1->setSingleStep(kWheelStep);
  VScroll1->setPageStep(4 * kWheelStep);
}

void Form14::MakeOk() {
  QFrame* panel = AddPanel(1);
  Label1 = Named(new QLabel(panel), "Label1");
  GridOf(panel)->addWidget(Label1, 0, 0);
  Picture6 = Named(new PictureButton(Client(), QStringLiteral("button"), "form14 Picture6_Click",
                                     [this] { Picture6_Click(); }),
                   "Picture6");
}

void Form14::LimitHeight() {
  const int view = Picture12.back()->geometry().bottom() + 1 - kFarthest;
  const int around = kFrameTop + 3 * kMargin + kButtonSize.height() + kFrameEdge;
  setMinimumHeight(std::max(minimumHeight(), view + around));
}

/// Only from here on: filling the fields is no change of the person's.
void Form14::FollowChanges() {
  connect(Check1, &QCheckBox::toggled, this, [this] { RestartNeeded = true; });
  connect(Text1, &QLineEdit::textChanged, this, [this] { RestartNeeded = true; });
  connect(VScroll1, &QScrollBar::valueChanged, this,
          [this] { platform::Guarded("form14 VScroll1_Change", [this] { VScroll1_Change(); }); });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, const QWidget* now) {
    platform::Guarded("form14 GotFocus", [this, now] { BringIntoView(now); });
  });
}

void Form14::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Text(texts::kSettingsCaption));
  for (const Caption& caption : captions_) {
    caption.control->setProperty("text", Text(caption.text));
    if (caption.field) caption.field->setAccessibleName(Text(caption.text));
  }
  Picture1->SetText(Text(texts::kSettingsSearch));
  Picture6->SetText(Text(texts::kSettingsOk));
  Label1->setText(QString::fromStdString(
      SettingsMessage[platform::RunsAsService() ? kService : kOrdinaryProgram]));
}

void Form14::Form_Resize() {
  const QSize client = Client()->size();
  const int bottom = client.height() - kMargin - kButtonSize.height();
  const int scrollLeft = client.width() - kMargin - kScrollBarWidth;
  Picture6->setGeometry(
      QRect({scrollLeft + kScrollBarWidth - kButtonSize.width(), bottom}, kButtonSize));
  view_->setGeometry(kMargin, kMargin, scrollLeft - 2 * kMargin, bottom - 2 * kMargin);
  VScroll1->setGeometry(scrollLeft, kMargin, kScrollBarWidth, view_->height());
  for (QFrame* panel : Picture12) panel->resize(view_->width(), panel->height());
}

void Form14::VScroll1_Change() {
  for (size_t i = 0; i < Picture12.size(); ++i)
    Picture12[i]->move(0, panelTops_[i] - VScroll1->value());
}

/// The keyboard reaches the fields of a panel that is scrolled away, and so does a refused OK.
void Form14::BringIntoView(const QWidget* control) {
  if (!control || !view_->isAncestorOf(control)) return;
  const int top = control->mapTo(view_, QPoint()).y();
  const int below = top + control->height() + kPanelPadding - view_->height();
  if (top < 0) VScroll1->setValue(VScroll1->value() + top - kPanelPadding);
  if (below > 0) VScroll1->setValue(VScroll1->value() + below);
}

void Form14::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) return ViewWindow::keyPressEvent(event);
  if (event->isAutoRepeat()) return;
  platform::Post("form14 Picture6_Click", [form = QPointer(this)] {
    if (form) form->Picture6_Click();
  });
}

void Form14::wheelEvent(QWheelEvent* event) {
  Enter("VScroll1_Scroll", [&] {
    VScroll1->setValue(VScroll1->value() - event->angleDelta().y() * kWheelStep / kWheelNotch);
  });
}

void Form14::ShowFields(const SettingsFields& fields) {
  Combo1->setCurrentIndex(Combo1->findText(QString::fromStdString(fields.port)));
  Check1->setChecked(fields.webEnabled);
  Text1->setText(QString::fromStdString(fields.webPort));
  for (size_t i = 0; i < kSettingsBoxes; ++i)
    Text2[i]->setText(QString::fromStdString(fields.boxes[i]));
  Check2->setChecked(fields.autoSave);
  for (size_t i = 0; i < kDelaySwitches; ++i) Check3[i]->setChecked(fields.delaysOn[i]);
  Check4->setChecked(fields.eventPopup);
  (fields.celsius ? Option1 : Option2)->setChecked(true);
}

SettingsFields Form14::Fields() const {
  SettingsFields fields;
  fields.port = Combo1->currentText().toStdString();
  fields.webEnabled = Check1->isChecked();
  fields.webPort = OneLineOf(*Text1);
  for (size_t i = 0; i < kSettingsBoxes; ++i) fields.boxes[i] = OneLineOf(*Text2[i]);
  fields.autoSave = Check2->isChecked();
  for (size_t i = 0; i < kDelaySwitches; ++i) fields.delaysOn[i] = Check3[i]->isChecked();
  fields.eventPopup = Check4->isChecked();
  fields.celsius = Option1->isChecked();
  return fields;
}

void Form14::Refuse(const SettingsFault& fault) {
  QLineEdit* box = fault.box == kWebPortBox ? Text1 : Text2[fault.box];
  box->selectAll();
  box->setFocus();
  BringIntoView(box);
  platform::Tell(this, {.text = SettingsMessage[fault.message], .icon = kWarning});
}

void Form14::Picture6_Click() {
  if (const auto fault = ApplySettings(Fields())) return Refuse(*fault);
  if (!SaveSettings("form14 Picture6_Click", this)) return;
  if (!RestartNeeded) {
    close();
    return;
  }
  platform::Tell(this, {.text = SettingsMessage[kRestart]}, [this] { close(); });
}

/// The search lets other handlers run, and the window may go meanwhile.
void Form14::Picture1_Click() {
  const QPointer<Form14> form(this);
  int16_t port = kNoSearch;
  findport(port);
  if (port == kNoSearch) return;
  if (port == 0) {
    platform::Tell(form, {.text = SettingsMessage[kNothingFound], .icon = kWarning});
    return;
  }
  SetPort(port);
  if (form) Combo1->setCurrentIndex(ChoiceOfPort(port));
}

}  // namespace varek
