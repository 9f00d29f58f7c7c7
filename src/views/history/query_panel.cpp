#include "views/history/query_panel.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

#include "platform/errors/guard.h"
#include "records/files/sample_columns.h"
#include "views/history/rows/column_caption.h"
#include "views/kit/controls/choice_list.h"
#include "views/kit/looks/shown.h"

namespace varek {

namespace {

constexpr int kMargin = 8;
constexpr int kGap = 4;
constexpr int kLimitWidth = 84;

// Rows of the panel's grid.
constexpr int kFromRow = 0;
constexpr int kToRow = 1;
constexpr int kHeadRow = 2;
constexpr int kFirstFieldRow = 3;
constexpr int kButtonRow = kFirstFieldRow + int{kMeasureCount};

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

}  // namespace

QueryPanel::QueryPanel(QWidget* parent, StickyPanels& panels, size_t number,
                       std::function<void()> query)
    : MovablePanel(parent, "form2 Frame2", panels, number), grid_(new QGridLayout(this)) {
  grid_->setContentsMargins(kMargin, kTitleHeight, kMargin, kMargin);
  grid_->setSpacing(kGap);
  grid_->setColumnStretch(0, 1);
  from_ = MakeTime(kFromRow, FromTimes());
  to_ = MakeTime(kToRow, ToTimes());
  MakeLimits();
  MakeButtons(std::move(query));
}

QueryPanel::TimeLimit QueryPanel::MakeTime(int row, const std::vector<std::string>& times) {
  const TimeLimit time{new QLabel(this), new ChoiceList(this)};
  for (const std::string& choice : times) time.list->addItem(Shown(choice));
  grid_->addWidget(time.label, row, 0);
  grid_->addWidget(time.list, row, 1, 1, 2);
  return time;
}

void QueryPanel::MakeLimits() {
  for (int column = 0; column < static_cast<int>(heads_.size()); ++column) {
    auto* head = heads_[static_cast<size_t>(column)] = new QLabel(this);
    if (column > 0) head->setAlignment(Qt::AlignCenter);
    grid_->addWidget(head, kHeadRow, column);
  }
  int row = kFirstFieldRow;
  for (ValueLimits& value : values_) value = MakeValue(row++);
}

std::array<QWidget*, 4> QueryPanel::ValueLimits::Parts() const {
  return {label, lower, upper, word};
}

QueryPanel::ValueLimits QueryPanel::MakeValue(int row) {
  const ValueLimits value{new QLabel(this), new LimitField(this), new LimitField(this),
                          new ChoiceList(this)};
  for (const char* word : kJoiningWords) value.word->addItem(QString::fromLatin1(word));
  int column = 0;
  for (QWidget* part : value.Parts()) grid_->addWidget(part, row, column++);
  return value;
}

void QueryPanel::MakeButtons(std::function<void()> query) {
  grid_->addWidget(queryButton_ = new QPushButton(this), kButtonRow, 1);
  grid_->addWidget(clearButton_ = new QPushButton(this), kButtonRow, 2);
  connect(queryButton_, &QPushButton::clicked, this,
          [query = std::move(query)] { platform::Guarded("form2 Command4_Click", query); });
  connect(clearButton_, &QPushButton::clicked, this,
          [this] { platform::Guarded("form2 Command8_Click", [this] { Clear(); }); });
}

HistoryLimits QueryPanel::Limits() const {
  HistoryLimits limits{
      from_.list->currentText().toStdString(), to_.list->currentText().toStdString(), {}};
  for (size_t i = 0; i < values_.size(); ++i)
    limits.fields[i] = {values_[i].lower->text().toStdString(),
                        values_[i].upper->text().toStdString(),
                        values_[i].word->currentText().toStdString()};
  return limits;
}

void QueryPanel::ShowRows() {
  int column = kInputColumn;
  for (const ValueLimits& value : values_) {
    const bool shown = IsMeasured(column++);
    for (QWidget* part : value.Parts()) part->setVisible(shown);
  }
  grid_->invalidate();
  adjustSize();
  TellPanels();
}

void QueryPanel::Clear() {
  for (const ValueLimits& value : values_) {
    value.word->setCurrentIndex(0);
    value.lower->setText(QString::fromLatin1(kDontCare));
    value.upper->setText(QString::fromLatin1(kDontCare));
  }
  from_.list->setCurrentIndex(0);
  to_.list->setCurrentIndex(0);
}

void QueryPanel::ApplyLanguage() {
  SetTitle(Shown(texts::kHistoryQueryPanel));
  from_.label->setText(Shown(texts::kHistoryFrom));
  to_.label->setText(Shown(texts::kHistoryTo));
  for (size_t i = 0; i < heads_.size(); ++i) heads_[i]->setText(Shown(kHeadTexts[i]));
  int column = kInputColumn;
  for (const ValueLimits& value : values_) value.label->setText(Shown(ColumnCaption(column++)));
  queryButton_->setText(Shown(texts::kHistoryQuery));
  clearButton_->setText(Shown(texts::kHistoryClear));
  ShowRows();
}

}  // namespace varek
