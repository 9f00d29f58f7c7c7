#include "views/save_dialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <utility>

namespace varek {

namespace {

std::function<std::string(const SaveQuestion&)>& Replacement() {
  static std::function<std::string(const SaveQuestion&)> ask;
  return ask;
}

/// The toolkit reads the patterns from what is shown.
QStringList ShownFilters(const std::string& filters) {
  const QStringList parts = QString::fromStdString(filters).split(QLatin1Char('|'));
  QStringList shown;
  for (qsizetype i = 0; i < parts.size(); i += 2) shown.append(parts[i]);
  return shown;
}

}  // namespace

std::string AskSaveName(QWidget& window, const SaveQuestion& question) {
  if (Replacement()) return Replacement()(question);
  const QPointer<QFileDialog> dialog = new QFileDialog(
      &window, QString::fromStdString(question.title), QString::fromStdString(question.folder));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setNameFilters(ShownFilters(question.filters));
  const QString name = QString::fromStdString(question.name);
  dialog->setDefaultSuffix(QFileInfo(name).suffix());
  dialog->selectFile(name);
  QString chosen;
  QObject::connect(dialog, &QFileDialog::fileSelected, &window,
                   [&chosen](const QString& file) { chosen = file; });
  dialog->exec();
  return chosen.toStdString();
}

void ReplaceSaveDialog(std::function<std::string(const SaveQuestion&)> ask) {
  Replacement() = std::move(ask);
}

}  // namespace varek
