#include "autosave/hint_window.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "autosave/hint_memory.h"
#include "autosave/save_jobs.h"
#include "kit/texts.h"
#include "platform/errors/log.h"
#include "platform/errors/runtime_error.h"
#include "views/kit/windows/message_window.h"

namespace sidecar {

namespace {

constexpr int kTextWidth = 440;

QString Translated(size_t number) { return QString::fromStdString(Text(number, ChosenLanguage())); }

}  // namespace

HintWindow::HintWindow()
    : NoticeWindow(varek::Sign::Hint, Translated(varek::texts::kHintHeadline),
                   Translated(varek::texts::kNoticeClose)),
      silence_(new QCheckBox(Translated(varek::texts::kHintSilence))) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  QLabel* purpose = varek::MakePlainLabel(Translated(varek::texts::kHintPurpose));
  purpose->setFixedWidth(kTextWidth);
  Contents()->addWidget(purpose);
  AddStep(1, varek::texts::kHintFolder, QString::fromStdString(SaveFolder()));
  AddStep(2, varek::texts::kHintSetting, Translated(varek::texts::kSettingsAutosave));
  ButtonRow()->insertWidget(0, silence_);
}

void HintWindow::AddStep(int number, size_t text, const QString& detail) {
  QLabel* step = varek::MakePlainLabel(QString::number(number) + QStringLiteral(". ") +
                                       Translated(text) + QLatin1Char('\n') + detail);
  step->setFixedWidth(kTextWidth);
  step->setTextInteractionFlags(Qt::TextSelectableByMouse);
  Contents()->addWidget(step);
}

void HintWindow::closeEvent(QCloseEvent* event) {
  NoticeWindow::closeEvent(event);
  if (!silence_->isChecked()) return;
  try {
    SilenceHint();
  } catch (const platform::RuntimeError& error) {
    platform::LogLine("ShowAutoSave: " + std::string(error.what()));
  }
}

}  // namespace sidecar
