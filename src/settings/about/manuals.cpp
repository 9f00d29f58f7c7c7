#include "settings/about/manuals.h"

#include <QListWidget>
#include <QShortcut>
#include <array>

#include "platform/desktop/message_box.h"
#include "platform/errors/guard.h"
#include "platform/system/paths.h"
#include "platform/time/events.h"
#include "platform/toolkit/open_document.h"
#include "texts/language.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/looks/shown.h"

namespace varek {

namespace {

constexpr QSize kStartSize{340, 170};
constexpr int kMargin = 12;
constexpr int kLineSpacing = 3;
constexpr QSize kButtonSize{110, 30};

struct Manual {
  size_t file;  ///< text number of the path below the program folder
  size_t title;
};

constexpr std::array<Manual, 2> kManuals{{{texts::kUserManualFile, texts::kUserManualTitle},
                                          {texts::kWebManualFile, texts::kWebManualTitle}}};

}  // namespace

FormSlot<Form17>& Manuals() {
  static FormSlot<Form17> slot(Form17::kNumber);
  return slot;
}

void ShowManuals() { Manuals().Get().ShowAndRaise(); }

Form17::Form17()
    : ViewWindow(kNumber, kStartSize, kStartSize),
      list_(new QListWidget(Client())),
      close_(new PictureButton(Client(), QStringLiteral("button"), "form17 Picture6_Click",
                               [this] { close(); })) {
  list_->setSpacing(kLineSpacing);
  for (size_t i = 0; i < kManuals.size(); ++i) list_->addItem(QString());
  list_->setCurrentRow(0);
  connect(list_, &QListWidget::doubleClicked, this, [this] { OpenSelected(); });
  for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
    auto* enter = new QShortcut(key, list_);
    enter->setContext(Qt::WidgetShortcut);
    connect(enter, &QShortcut::activated, this, [this] { OpenSelected(); });
  }
  ApplyLanguage();
  Form17::Form_Resize();
  list_->setFocus();
}

void Form17::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(Shown(texts::kManualsCaption));
  list_->setAccessibleName(Shown(texts::kManualsCaption));
  for (size_t i = 0; i < kManuals.size(); ++i)
    list_->item(static_cast<int>(i))->setText(Shown(kManuals[i].title));
  close_->SetText(Shown(texts::kAboutClose));
}

void Form17::Form_Resize() {
  const QRect area = Client()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  list_->setGeometry(area.adjusted(0, 0, 0, -kMargin - kButtonSize.height()));
  close_->setGeometry(QRect(
      area.bottomRight() - QPoint(kButtonSize.width() - 1, kButtonSize.height() - 1), kButtonSize));
}

void Form17::OpenSelected() {
  platform::Guarded("form17 List1_DblClick", [this] { showpdf(list_->currentRow()); });
}

void Form17::showpdf(int index) {
  if (index < 0 || index >= static_cast<int>(kManuals.size())) return;
  const std::string& file = LangText[kManuals[static_cast<size_t>(index)].file];
  switch (platform::OpenDocument(platform::ProgramPath(file))) {
    case platform::OpenResult::Opened:
      return;
    case platform::OpenResult::FileMissing:
      return Tell(LangText[texts::kManualMissing]);
    case platform::OpenResult::NoProgram:
      return Tell(LangText[texts::kManualNoProgram]);
  }
}

}  // namespace varek
