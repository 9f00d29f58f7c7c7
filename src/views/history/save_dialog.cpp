#include "views/history/save_dialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <utility>

#include "platform/time/events.h"
#include "texts/language.h"
#include "views/kit/looks/style.h"
#include "views/kit/windows/window_places.h"

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

/// The question of the toolkit's dialogue would stop the whole program, countdowns included.
void AskToReplace(QWidget& window, const QString& file, std::function<void()> replace) {
  const QString text = QFileInfo(file).fileName() + QLatin1Char('\n') +
                       QString::fromStdString(LangText[texts::kReplaceFile]);
  auto* box = new QMessageBox(QMessageBox::Warning, QStringLiteral("Varek"), text,
                              QMessageBox::NoButton, &window);
  ApplyStyle(*box);
  box->setTextFormat(Qt::PlainText);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowModality(Qt::WindowModal);
  auto* yes =
      box->addButton(QString::fromStdString(LangText[texts::kYes]), QMessageBox::AcceptRole);
  auto* no = box->addButton(QString::fromStdString(LangText[texts::kNo]), QMessageBox::RejectRole);
  box->setDefaultButton(no);
  box->setEscapeButton(no);
  QObject::connect(yes, &QPushButton::clicked, &window,
                   [replace = std::move(replace)] { platform::Post("save dialogue", replace); });
  PlaceOnAsker(*box);
  box->show();
}

void SaveUnlessKept(QWidget& window, const QString& file,
                    const std::function<void(const std::string&)>& save) {
  if (!QFileInfo::exists(file)) return save(file.toStdString());
  AskToReplace(window, file, [=, asker = QPointer(&window)] {
    if (asker) save(file.toStdString());
  });
}

}  // namespace

void AskSaveName(QWidget& window, const SaveQuestion& question,
                 std::function<void(const std::string&)> save) {
  if (Replacement()) {
    const std::string file = Replacement()(question);
    if (!file.empty()) save(file);
    return;
  }
  auto* dialog = new QFileDialog(&window, QString::fromStdString(question.title),
                                 QString::fromStdString(question.folder));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowModality(Qt::WindowModal);
  dialog->setOption(QFileDialog::DontConfirmOverwrite);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setNameFilters(ShownFilters(question.filters));
  const QString name = QString::fromStdString(question.name);
  dialog->setDefaultSuffix(QFileInfo(name).suffix());
  dialog->selectFile(name);
  QObject::connect(dialog, &QFileDialog::fileSelected, &window,
                   [save = std::move(save), asker = QPointer(&window)](const QString& file) {
                     platform::Post("save dialogue", [=] {
                       if (asker) SaveUnlessKept(*asker, file, save);
                     });
                   });
  PlaceOnAsker(*dialog);
  dialog->show();
}

void ReplaceSaveDialog(std::function<std::string(const SaveQuestion&)> ask) {
  Replacement() = std::move(ask);
}

}  // namespace varek
