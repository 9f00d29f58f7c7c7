#include "platform/open_document.h"

#include <QDesktopServices>
#include <QUrl>
#include <utility>

#include "platform/paths.h"

namespace platform {

namespace {

std::function<bool(const std::string&)>& Replacement() {
  static std::function<bool(const std::string&)> open;
  return open;
}

bool OpenOnDesktop(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
}

}  // namespace

OpenResult OpenDocument(const std::string& path) {
  if (!IsFile(path)) return OpenResult::FileMissing;
  const bool taken = Replacement() ? Replacement()(path) : OpenOnDesktop(path);
  return taken ? OpenResult::Opened : OpenResult::NoProgram;
}

void ReplaceDocumentOpener(std::function<bool(const std::string&)> open) {
  Replacement() = std::move(open);
}

}  // namespace platform
