#include "platform/message_box.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include <QEventLoop>
#include <QMessageBox>
#include <QPointer>

#include "platform/application.h"
#include "platform/events.h"
#include "platform/guard.h"

namespace platform {

namespace {

std::function<void(const std::string&, const std::string&)>& Replacement() {
  static std::function<void(const std::string&, const std::string&)> show;
  return show;
}

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

/// True when the message needs no box.
bool IsToldOtherwise(const Message& message) {
  if (Replacement()) {
    Replacement()(message.text, message.title);
    return true;
  }
  if (HasDisplay()) return false;
  LogLine(message.title + ": " + message.text);
  return true;
}

}  // namespace

void Tell(QWidget* window, const Message& message, std::function<void()> closed) {
  if (!closed) closed = [] {};
  if (IsToldOtherwise(message)) return closed();
  QDialog* box = ShowBox(window, message);
  QObject::connect(box, &QDialog::finished, box,
                   [closed = std::move(closed)] { Guarded("message box", closed); });
}

void TellLater(const std::string& place, QWidget* window, const Message& message) {
  Post(place, [window = QPointer(window), message] { Tell(window, message); });
}

void MessageBox(const std::string& text, const std::string& title, MessageIcon icon) {
  const Message message{text, title, icon};
  if (IsToldOtherwise(message)) return;
  QEventLoop loop;
  QObject::connect(ShowBox(nullptr, message), &QObject::destroyed, &loop, &QEventLoop::quit);
  loop.exec();
}

void SetMessageBoxMaker(MessageBoxMaker make) { Maker() = std::move(make); }

void LogLine(const std::string& text) {
  // The service manager reads the level from the number in front of the line.
  const char* level = std::getenv("JOURNAL_STREAM") ? "<4>" : "";
  std::fprintf(stderr, "%s%s\n", level, text.c_str());
}

void ReplaceMessageBox(std::function<void(const std::string&, const std::string&)> show) {
  Replacement() = std::move(show);
}

}  // namespace platform
