#include "views/history/query_panel.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

#include "platform/errors/guard.h"
#include "views/history/rows/history_rows.h"
#include "views/history/rows/history_texts.h"
#include "views/kit/controls/choice_list.h"

namespace varek {

namespace {

constexpr int kMargin = 8;
constexpr int kGap = 4;
constexpr int kLimitWidth = 84;

// Rows of the panel's grid.
constexpr int kTimeRow = 0;
constexpr int kHeadRow = 2;
constexpr int kFirstFieldRow = 3;
constexpr int kButtonRow = kFirstFieldRow + int{kValueFields};

constexpr std::array<size_t, 4> kHeadTexts{texts::kHistoryValueLimits, texts::kHistoryLowerLimit,
                                           texts::kHistoryUpperLimit, texts::kHistoryJoinedBy};

/// Keys that move about or delete carry no character, or one that is none of a text's.
bool IsTakenByLimit(const QKeyEvent& key) {
  const QString typed = key.text();
  return typed.isEmpty() || key.key() == Qt::Key_Delete || IsLimitKey(typed.at(0).unicode());
}

class LimitField final : public QLineEdit {
 public:
  explicit LimitField(QWidget* parent) : QLineEdit(QString::fromLatin1(kDontCare), parent) {
    setFixedWidth(kLimitWidth);
    setAttribute(Qt::WA_InputMethodEnabled, false);  // It would write past the keys.
  }

 protected:
  /// What the field drops may still mean something to the window.
  void keyPressEvent(QKeyEvent* event) override {
    platform::Guarded("form2 Text1_KeyPress", [&] {
      IsTakenByLimit(*event) ? QLineEdit::keyPressEvent(event) : event->ignore();
    });
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    QLineEdit::mouseReleaseEvent(event);
    platform::Guarded("form2 Text1_Click", [this] { selectAll(); });
  }
  /// The field's own menu only borrows the focus.
  void focusOutEvent(QFocusEvent* event) override {
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason || !text().isEmpty()) return;
    platform::Guarded("form2 Text1_LostFocus", [this] { setText(QString::fromLatin1(kDontCare)); });
  }
};

QComboBox* MakeTimeList(QWidget* parent, const std::vector<std::string>& times) {
  auto* list = new ChoiceList(parent);
  for (const std::string& time : times) list->addItem(QString::fromStdString(time));
  return list;
}

}  // namespace

QueryPanel::QueryPanel(QWidget* parent, StickyPanels& panels, size_t number,
                       std::function<void()> query)
    : MovablePanel(parent, "form2 Frame2", panels, number), grid_(new QGridLayout(this)) {
  grid_->setContentsMargins(kMargin, kTitleHeight, kMargin, kMargin);
  grid_->setSpacing(kGap);
  grid_->setColumnStretch(0, 1);
  MakeTimes();
  MakeLimits();
  MakeButtons(std::move(query));
}

void QueryPanel::MakeTimes() {
  Combo1 = {MakeTimeList(this, FromTimes()), MakeTimeList(this, ToTimes())};
  for (int i = 0; i < 2; ++i) {
    const auto which = static_cast<size_t>(i);
    timeLabels_[which] = new QLabel(this);
    grid_->addWidget(timeLabels_[which], kTimeRow + i, 0);
    grid_->addWidget(Combo1[which], kTimeRow + i, 1, 1, 2);
  }
}

void QueryPanel::MakeLimits() {
  for (int column = 0; column < static_cast<int>(heads_.size()); ++column) {
    auto* head = heads_[static_cast<size_t>(column)] = new QLabel(this);
    if (column > 0) head->setAlignment(Qt::AlignCenter);
    grid_->addWidget(head, kHeadRow, column);
  }
  for (size_t field = 0; field < kValueFields; ++field) {
    const int row = kFirstFieldRow + static_cast<int>(field);
    grid_->addWidget(fieldLabels_[field] = new QLabel(this), row, 0);
    for (const size_t upper : {0, 1})
      grid_->addWidget(Text1[2 * field + upper] = new LimitField(this), row,
                       1 + static_cast<int>(upper));
    grid_->addWidget(Combo2[field] = new ChoiceList(this), row, 3);
    for (const char* word : kJoiningWords) Combo2[field]->addItem(QString::fromLatin1(word));
  }
}

void QueryPanel::MakeButtons(std::function<void()> query) {
  grid_->addWidget(Command4 = new QPushButton(this), kButtonRow, 1);
  grid_->addWidget(Command8 = new QPushButton(this), kButtonRow, 2);
  connect(Command4, &QPushButton::clicked, this,
          [query = std::move(query)] { platform::Guarded("form2 Command4_Click", query); });
  connect(Command8, &QPushButton::clicked, this,
          [this] { platform::Guarded("form2 Command8_Click", [this] { Command8_Click(); }); });
}

HistoryLimits QueryPanel::Limits() const {
  HistoryLimits limits{
      Combo1[0]->currentText().toStdString(), Combo1[1]->currentText().toStdString(), {}};
  for (size_t field = 0; field < kValueFields; ++field)
    limits.fields[field] = {Text1[2 * field]->text().toStdString(),
                            Text1[2 * field + 1]->text().toStdString(),
                            Combo2[field]->currentText().toStdString()};
  return limits;
}

void QueryPanel::ShowRows() {
  for (size_t field = 0; field < kValueFields; ++field) {
    const bool shown = HasColumn(static_cast<int>(field) + 1);
    for (QWidget* part : std::initializer_list<QWidget*>{fieldLabels_[field], Text1[2 * field],
                                                         Text1[2 * field + 1], Combo2[field]})
      part->setVisible(shown);
  }
  grid_->invalidate();
  adjustSize();
  TellPanels();
}

void QueryPanel::Command8_Click() {
  for (QComboBox* word : Combo2) word->setCurrentIndex(0);
  for (QLineEdit* limit : Text1) limit->setText(QString::fromLatin1(kDontCare));
  for (QComboBox* time : Combo1) time->setCurrentIndex(0);
}

void QueryPanel::ApplyLanguage() {
  SetTitle(HistoryText(texts::kHistoryQueryPanel));
  timeLabels_[0]->setText(HistoryText(texts::kHistoryFrom));
  timeLabels_[1]->setText(HistoryText(texts::kHistoryTo));
  for (size_t i = 0; i < heads_.size(); ++i) heads_[i]->setText(HistoryText(kHeadTexts[i]));
  for (size_t field = 0; field < kValueFields; ++field)
    fieldLabels_[field]->setText(
        QString::fromStdString(ColumnCaption(static_cast<int>(field) + 1)));
  Command4->setText(HistoryText(texts::kHistoryQuery));
  Command8->setText(HistoryText(texts::kHistoryClear));
  ShowRows();
}

}  // namespace varek
