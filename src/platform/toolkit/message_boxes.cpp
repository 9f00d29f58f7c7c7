#include "platform/toolkit/message_boxes.h"

#include <utility>

#include <QEventLoop>
#include <QMessageBox>
#include <QPointer>

#include "platform/errors/guard.h"
#include "platform/toolkit/display.h"

namespace platform {

namespace {

MessageBoxMaker& Maker() {
  static MessageBoxMaker make;
  return make;
}

QDialog* MakePlainBox(QWidget* window, const Message& message) {
  auto* box = new QMessageBox(window);
  box->setWindowTitle(QString::fromStdString(message.title));
  box->setTextFormat(Qt::PlainText);
  box->setText(QString::fromStdString(message.text));
  const bool warns = message.icon == MessageIcon::Exclamation;
  box->setIcon(warns ? QMessageBox::Warning : QMessageBox::Information);
  return box;
}

/// The toolkit's dialogues would stop the whole program, so the box is never executed.
QDialog* ShowBox(QWidget* window, const Message& message) {
  QDialog* box = (Maker() ? Maker() : MakePlainBox)(window, message);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowModality(window ? Qt::WindowModal : Qt::NonModal);
  // A box of no window would vanish behind the first one that is opened after it.
  if (!window) box->setWindowFlag(Qt::WindowStaysOnTopHint);
  box->show();
  return box;
}

}  // namespace

void SetMessageBoxMaker(MessageBoxMaker make) { Maker() = std::move(make); }

bool ToolkitMessageBoxes::IsSeen() const { return HasDisplay(); }

void ToolkitMessageBoxes::Show(QWidget* window, const Message& message,
                               std::function<void()> closed) {
  QDialog* box = ShowBox(window, message);
  QObject::connect(box, &QDialog::finished, box,
                   [closed = std::move(closed)] { Guarded("message box", closed); });
}

void ToolkitMessageBoxes::ShowAndWait(const Message& message) {
  QEventLoop loop;
  QObject::connect(ShowBox(nullptr, message), &QObject::destroyed, &loop, &QEventLoop::quit);
  loop.exec();
}

std::function<QWidget*()> ToolkitMessageBoxes::Follow(QWidget* window) {
  return [window = QPointer(window)] { return window.data(); };
}

}  // namespace platform
