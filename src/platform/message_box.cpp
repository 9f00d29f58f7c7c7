#include "platform/message_box.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include <QMessageBox>

#include "platform/application.h"

namespace platform {

namespace {

std::function<void(const std::string&, const std::string&)>& Replacement() {
  static std::function<void(const std::string&, const std::string&)> show;
  return show;
}

void ShowOnDisplay(const std::string& text, const std::string& title, MessageIcon icon) {
  QMessageBox box;
  box.setWindowTitle(QString::fromStdString(title));
  box.setText(QString::fromStdString(text));
  box.setIcon(icon == MessageIcon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
  box.exec();
}

}  // namespace

void MessageBox(const std::string& text, const std::string& title, MessageIcon icon) {
  if (Replacement()) return Replacement()(text, title);
  if (!HasDisplay()) return LogLine(title + ": " + text);
  ShowOnDisplay(text, title, icon);
}

void LogLine(const std::string& text) {
  // The service manager reads the level from the number in front of the line.
  const char* level = std::getenv("JOURNAL_STREAM") ? "<4>" : "";
  std::fprintf(stderr, "%s%s\n", level, text.c_str());
}

void ReplaceMessageBox(std::function<void(const std::string&, const std::string&)> show) {
  Replacement() = std::move(show);
}

}  // namespace platform
