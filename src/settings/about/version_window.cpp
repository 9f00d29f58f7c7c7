#include "settings/about/version_window.h"

#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "settings/about/manuals.h"
#include "texts/language.h"
#include "views/kit/controls/colors.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/style.h"

namespace varek {

namespace {

constexpr QSize kStartSize{440, 230};
constexpr int kMargin = 12;
constexpr int kLeastLine = 24;
constexpr int kVersionPixels = 15;
constexpr QSize kButtonSize{110, 30};

constexpr char kVersion[] = "Version: Varek 705\n\n";

/// The newest first.
constexpr const char* kChanges[] = {
    "Windows for the settings, the web log and the manuals",
    "Viewers: oscilloscope, data history, event log, schedule",
    "Web console in three languages",
    "Dashboard and tray icon",
    "Monitor on serial and USB links, records, shutdowns",
};

QString Text(size_t number) { return QString::fromStdString(LangText[number]); }

template <typename Control>
Control* Named(Control* control, const char* name) {
  control->setObjectName(QString::fromLatin1(name));
  return control;
}

QString LinkLooks() {
  return QStringLiteral(
             "QPushButton { border: none; padding: 0px 8px; background: transparent; color: %1;"
             "  text-align: left; }"
             "QPushButton:hover, QPushButton:focus { color: %2; }")
      .arg(ToQColor(palette::kMuted).name(), ToQColor(palette::kAccent).name());
}

/// Keeps what `inner` is and puts it into the middle of `outer`.
QRect Centred(QSize inner, QSize outer) {
  return {(outer.width() - inner.width()) / 2, (outer.height() - inner.height()) / 2, inner.width(),
          inner.height()};
}

}  // namespace

FormSlot<Form16>& VersionWindow() {
  static FormSlot<Form16> slot(Form16::kNumber);
  return slot;
}

void ShowVersion() { VersionWindow().Get().ShowAndRaise(); }

Form16::Form16()
    : ViewWindow(kNumber, kStartSize, kStartSize),
      panel_(Named(new QFrame(Client()), "panel")),
      Label1(Named(new QLabel(panel_), "Label1")),
      Label5(Named(new QLabel(Client()), "Label5")),
      Label4(Named(new QPushButton(Client()), "Label4")),
      Picture6(Named(new PictureButton(Client(), QStringLiteral("button"), "form16 Picture6_Click",
                                       [this] { close(); }),
                     "Picture6")),
      List1(Named(new QListWidget(Client()), "List1")) {
  Label1->setAlignment(Qt::AlignCenter);
  Label1->setStyleSheet(QStringLiteral("font-size: %1px;").arg(kVersionPixels));
  Label5->setAlignment(Qt::AlignCenter);
  Label4->setStyleSheet(LinkLooks());
  connect(Label4, &QPushButton::clicked, this,
          [] { OpenForPerson("form16 Label4_Click", ShowManuals); });
  List1->hide();
  ApplyLanguage();
  Picture6->setFocus();
}

void Form16::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Text(texts::kAboutCaption));
  Label1->setText(Text(texts::kAboutProduct) + QString::fromLatin1(kVersion));
  Label4->setText(Text(texts::kManualsCaption));
  Label5->setText(Text(texts::kAboutLicence));
  Picture6->SetText(Text(texts::kAboutClose));
  Form16::Form_Resize();
}

void Form16::Form_Resize() {
  const QRect area = Client()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const int buttonTop = area.bottom() + 1 - kButtonSize.height();
  const int lineHeight = RowHeight(*Label5, kLeastLine);
  const int licenceTop = buttonTop - kMargin - lineHeight;
  panel_->setGeometry(area.x(), area.y(), area.width(), licenceTop - kMargin / 2 - area.y());
  Label1->setGeometry(Centred(Label1->sizeHint(), panel_->size()));
  Label5->setGeometry(area.x(), licenceTop, area.width(), lineHeight);
  Label4->setGeometry(QRect({area.x(), buttonTop}, kButtonSize));
  Picture6->setGeometry(QRect({area.right() + 1 - kButtonSize.width(), buttonTop}, kButtonSize));
}

void Form16::printout() {
  for (const char* change : kChanges) List1->addItem(QString::fromLatin1(change));
}

}  // namespace varek
