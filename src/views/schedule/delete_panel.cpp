#include "views/schedule/delete_panel.h"

#include <QVBoxLayout>

#include "texts/text_numbers.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/push_button.h"
#include "views/kit/looks/shown.h"

namespace varek {

namespace {

constexpr int kMargin = 10;
constexpr int kCrossSize = 18;
/// In the order of kDeleteChoices.
constexpr std::array<size_t, kDeleteChoices.size()> kChoiceTexts{
    texts::kDeleteThisDate, texts::kDeleteWhole, texts::kDeleteWeekly, texts::kDeleteMonthly};

}  // namespace

DeletePanel::DeletePanel(QWidget* parent, StickyPanels& panels, size_t number,
                         const std::function<void(char choice)>& chosen)
    : MovablePanel(parent, "form4 Frame4", panels, number) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kTitleHeight, kMargin, kMargin);
  for (size_t i = 0; i < choices_.size(); ++i) {
    choices_[i] =
        MakeButton(this, "form4 Command6_Click", [chosen, i] { chosen(kDeleteChoices[i]); });
    column->addWidget(choices_[i]);
  }
  cross_ =
      new PictureButton(this, QStringLiteral("close"), "form4 Frame4_Close", [this] { PutAway(); });
}

void DeletePanel::ApplyLanguage() {
  SetTitle(Shown(texts::kDeleteCaption));
  for (size_t i = 0; i < choices_.size(); ++i) choices_[i]->setText(Shown(kChoiceTexts[i]));
  cross_->setToolTip(Shown(texts::kCancel));
  cross_->setAccessibleName(Shown(texts::kCancel));
  layout()->invalidate();
  adjustSize();
  const int margin = (kTitleHeight - kCrossSize) / 2;
  cross_->setGeometry(width() - kCrossSize - margin, margin, kCrossSize, kCrossSize);
  TellPanels();
}

}  // namespace varek
