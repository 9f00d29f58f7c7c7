#include "platform/toolkit/open_document.h"

#include <QDesktopServices>
#include <QMimeDatabase>
#include <QProcess>
#include <QUrl>
#include <utility>

#include "platform/system/paths.h"

namespace platform {

namespace {

std::function<bool(const std::string&)>& Replacement() {
  static std::function<bool(const std::string&)> open;
  return open;
}

constexpr int kAnswerMilliseconds = 2000;

/// The desktop's opener starts well and fails later when no program is registered, so the registry
/// is asked first. Without that registry the opener must do.
bool HasProgram(const QString& path) {
  QProcess registry;
  registry.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"),
                                              QMimeDatabase().mimeTypeForFile(path).name()});
  if (!registry.waitForStarted(kAnswerMilliseconds)) return true;
  registry.waitForFinished(kAnswerMilliseconds);
  return !registry.readAllStandardOutput().trimmed().isEmpty();
}

bool OpenOnDesktop(const std::string& path) {
  const QString name = QString::fromStdString(path);
  return HasProgram(name) && QDesktopServices::openUrl(QUrl::fromLocalFile(name));
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
