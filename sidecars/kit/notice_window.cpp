#include "kit/notice_window.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

#include "drawing/palette.h"
#include "views/kit/looks/style.h"
#include "views/kit/windows/message_window.h"
#include "views/kit/windows/window_places.h"

namespace sidecar {

namespace {

constexpr int kSignSide = 56;
constexpr int kMargin = 18;
constexpr int kSpacing = 12;
constexpr int kHeadlinePixels = 19;
constexpr int kButtonWidth = 108;

QLabel* MakeSign(varek::Sign sign, qreal ratio) {
  auto* label = new QLabel;
  label->setPixmap(varek::SignPicture(sign, kSignSide, ratio));
  label->setAlignment(Qt::AlignTop);
  return label;
}

QLabel* MakeHeadline(const QString& text) {
  QLabel* label = varek::MakePlainLabel(text);
  QFont font = label->font();
  font.setPixelSize(kHeadlinePixels);
  font.setBold(true);
  label->setFont(font);
  return label;
}

}  // namespace

NoticeWindow::NoticeWindow(varek::Sign sign, const QString& headline, const QString& closeCaption)
    : contents_(new QVBoxLayout), buttonRow_(new QHBoxLayout) {
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint);
  setWindowTitle(QStringLiteral("Varek"));
  setWindowIcon(varek::SignPicture(sign, kSignSide));
  varek::ApplyStyle(*this);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  grid->setHorizontalSpacing(kMargin);
  grid->setVerticalSpacing(kSpacing);
  grid->setSizeConstraint(QLayout::SetFixedSize);
  grid->addWidget(MakeSign(sign, devicePixelRatioF()), 0, 0);
  grid->addLayout(contents_, 0, 1);
  grid->addLayout(buttonRow_, 1, 1);
  contents_->setSpacing(kSpacing);
  contents_->addWidget(MakeHeadline(headline));
  MakeButton(closeCaption);
}

void NoticeWindow::MakeButton(const QString& caption) {
  auto* button = new QPushButton(caption);
  button->setMinimumWidth(kButtonWidth);
  buttonRow_->addStretch();
  buttonRow_->addWidget(button);
  connect(button, &QPushButton::clicked, this, &NoticeWindow::CloseIfAllowed);
  for (const auto key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, &NoticeWindow::CloseIfAllowed);
  }
  button->setFocus();
}

void NoticeWindow::PlaceInCorner() {
  adjustSize();
  move(varek::PlaceNotice(varek::RoomAround(*this), varek::SizeWithFrame(*this)));
}

void NoticeWindow::CloseIfAllowed() {
  if (MayClose()) close();
}

void NoticeWindow::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  onClose_();
  QCoreApplication::exit();
}

}  // namespace sidecar
