#include "settings/about/version_window.h"

#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "drawing/palette.h"
#include "platform/errors/guard.h"
#include "settings/about/manuals.h"
#include "texts/text_numbers.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"

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
      panel_(new QFrame(Client())),
      version_(new QLabel(panel_)),
      licence_(new QLabel(Client())),
      manuals_(new QPushButton(Client())),
      close_(new PictureButton(Client(), QStringLiteral("button"), "form16 Picture6_Click",
                               [this] { close(); })),
      changes_(new QListWidget(Client())) {
  panel_->setObjectName(QStringLiteral("panel"));
  version_->setAlignment(Qt::AlignCenter);
  version_->setStyleSheet(QStringLiteral("font-size: %1px;").arg(kVersionPixels));
  licence_->setAlignment(Qt::AlignCenter);
  manuals_->setStyleSheet(LinkLooks());
  connect(manuals_, &QPushButton::clicked, this,
          [] { OpenForPerson("form16 Label4_Click", ShowManuals); });
  changes_->hide();
  ApplyLanguage();
  close_->setFocus();
}

void Form16::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(texts::kAboutCaption));
  version_->setText(Shown(texts::kAboutProduct) + QString::fromLatin1(kVersion));
  manuals_->setText(Shown(texts::kManualsCaption));
  licence_->setText(Shown(texts::kAboutLicence));
  close_->SetText(Shown(texts::kAboutClose));
  Form16::Form_Resize();
}

void Form16::Form_Resize() {
  const QRect area = Client()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const int buttonTop = area.bottom() + 1 - kButtonSize.height();
  const int lineHeight = RowHeight(*licence_, kLeastLine);
  const int licenceTop = buttonTop - kMargin - lineHeight;
  panel_->setGeometry(area.x(), area.y(), area.width(), licenceTop - kMargin / 2 - area.y());
  version_->setGeometry(Centred(version_->sizeHint(), panel_->size()));
  licence_->setGeometry(area.x(), licenceTop, area.width(), lineHeight);
  manuals_->setGeometry(QRect({area.x(), buttonTop}, kButtonSize));
  close_->setGeometry(QRect({area.right() + 1 - kButtonSize.width(), buttonTop}, kButtonSize));
}

void Form16::printout() {
  for (const char* change : kChanges) changes_->addItem(QString::fromLatin1(change));
}

}  // namespace varek
