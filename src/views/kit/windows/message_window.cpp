#include "views/kit/windows/message_window.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <algorithm>
#include <utility>

#include "platform/toolkit/message_boxes.h"
#include "views/kit/looks/sign.h"
#include "views/kit/looks/style.h"
#include "views/kit/windows/window_places.h"

namespace varek {

namespace {

constexpr int kSignSide = 40;
constexpr int kMargin = 18;
constexpr int kLeastTextWidth = 180;
constexpr int kMostTextWidth = 420;
constexpr int kButtonWidth = 96;

/// As wide as the text needs in one line, up to a limit that only a single long word exceeds.
int WidthOf(const QString& text, const QFontMetrics& metrics) {
  static const QRegularExpression blanks(QStringLiteral("\\s"));
  int width = std::min(metrics.size(0, text).width(), kMostTextWidth);
  for (const QString& word : text.split(blanks))
    width = std::max(width, metrics.horizontalAdvance(word));
  return std::max(width, kLeastTextWidth);
}

QLabel* MakeText(const QString& text) {
  QLabel* label = MakePlainLabel(text);
  label->ensurePolished();
  label->setFixedWidth(WidthOf(text, label->fontMetrics()));
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setFocusPolicy(Qt::NoFocus);
  return label;
}

QPushButton* MakeButton(QDialog& box, const std::string& text) {
  auto* button =
      new QPushButton(text.empty() ? QStringLiteral("OK") : QString::fromStdString(text));
  button->setMinimumWidth(kButtonWidth);
  button->setDefault(true);
  QObject::connect(button, &QPushButton::clicked, &box, &QDialog::accept);
  return button;
}

QDialog* MakeBox(QWidget* window, const platform::Message& message, const std::string& buttonText) {
  auto* box = new QDialog(window);
  ApplyStyle(*box);
  const bool warns = message.icon == platform::MessageIcon::Exclamation;
  const QPixmap sign =
      SignPicture(warns ? Sign::Warning : Sign::Hint, kSignSide, box->devicePixelRatioF());
  box->setWindowTitle(QString::fromStdString(message.title));
  box->setWindowIcon(sign);
  auto* picture = new QLabel;
  picture->setPixmap(sign);
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  grid->setSpacing(kMargin);
  grid->setSizeConstraint(QLayout::SetFixedSize);
  grid->addWidget(picture, 0, 0, Qt::AlignTop);
  grid->addWidget(MakeText(QString::fromStdString(message.text)), 0, 1, Qt::AlignVCenter);
  grid->addWidget(MakeButton(*box, buttonText), 1, 0, 1, 2, Qt::AlignRight);
  PlaceOnAsker(*box);
  return box;
}

}  // namespace

void DressMessageBoxes(std::function<std::string()> buttonText) {
  platform::SetMessageBoxMaker(
      [buttonText = std::move(buttonText)](QWidget* window, const platform::Message& message) {
        return MakeBox(window, message, buttonText());
      });
}

QLabel* MakePlainLabel(const QString& text) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setText(text);
  return label;
}

}  // namespace varek
