#include "views/schedule/schedule_list.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <array>
#include <utility>

#include "texts/text_numbers.h"
#include "views/kit/controls/push_button.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"

namespace varek {

namespace {

constexpr QSize kSize{656, 196};
constexpr int kMargin = 8;
constexpr int kRowHeight = 22;
constexpr int kTextSize = 11;  ///< pixels, at which the longest action fits its column

/// What each column shows. The buttons read the number from column 3; for the eye it comes first.
enum Column { kTime, kAction, kRepeat, kNumber, kRestart };

struct ColumnDesign {
  size_t headText;
  int percent;  ///< of the grid's width
};
constexpr std::array<ColumnDesign, 5> kColumns{{{texts::kScheduleHeadTime, 10},
                                                {texts::kScheduleHeadAction, 35},
                                                {texts::kScheduleHeadRepeat, 20},
                                                {texts::kScheduleHeadNumber, 10},
                                                {texts::kScheduleHeadRestart, 25}}};

}  // namespace

ScheduleList::ScheduleList(QWidget* parent, StickyPanels& panels, size_t number, Handlers handlers)
    : MovablePanel(parent, "form4 Frame1", panels, number) {
  MakeGrid();
  edit_ = MakeButton(this, "form4 Command4_Click", std::move(handlers.edit));
  delete_ = MakeButton(this, "form4 Command5_Click", std::move(handlers.remove));
  close_ = MakeButton(this, "form4 Command3_Click", std::move(handlers.close));
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(kMargin, kTitleHeight, kMargin, kMargin);
  layout->addWidget(table_, 0, 0, 1, 4);
  layout->addWidget(edit_, 1, 0);
  layout->addWidget(delete_, 1, 1);
  layout->addWidget(close_, 1, 3);
  layout->setColumnStretch(2, 1);
  resize(kSize);
}

void ScheduleList::MakeGrid() {
  table_ = new QTableWidget(0, static_cast<int>(kColumns.size()), this);
  table_->setStyleSheet(QStringLiteral("font-size: %1px;").arg(kTextSize));
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table_->setTabKeyNavigation(false);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setDefaultSectionSize(RowHeight(*table_, kRowHeight));
  QHeaderView& heads = *table_->horizontalHeader();
  heads.setHighlightSections(false);
  heads.setStretchLastSection(true);  // It gives way to the scroll bar.
  heads.moveSection(kNumber, 0);
  const int width = kSize.width() - 2 * kMargin;
  for (int column = 0; column < table_->columnCount(); ++column)
    heads.resizeSection(column, width * kColumns[static_cast<size_t>(column)].percent / 100);
}

void ScheduleList::ShowEntries(const std::vector<ScheduleEntry>& entries) {
  table_->setRowCount(0);
  for (const ScheduleEntry& entry : entries) {
    if (entry.number != kHole) AddRow(entry);
  }
}

void ScheduleList::AddRow(const ScheduleEntry& entry) {
  const int row = table_->rowCount();
  table_->setRowCount(row + 1);
  const auto put = [&](int column, const std::string& text) {
    auto* item = new QTableWidgetItem(Shown(text));
    item->setToolTip(item->text());
    table_->setItem(row, column, item);
  };
  put(kNumber, std::to_string(entry.number));
  put(kTime, entry.time);
  put(kAction, EventCodeText(entry.event));
  put(kRepeat, ReptText(entry.rept));
  put(kRestart, NoteText(entry.note));
}

QString ScheduleList::SelectedText(int column) const {
  const auto rows = table_->selectionModel()->selectedRows();
  return rows.isEmpty() ? QString() : table_->item(rows.front().row(), column)->text();
}

std::optional<int> ScheduleList::SelectedNumber() const {
  bool isNumber = false;
  const int number = SelectedText(kNumber).toInt(&isNumber);
  return isNumber ? std::optional(number) : std::nullopt;
}

std::string ScheduleList::SelectedTime() const { return SelectedText(kTime).toStdString(); }

void ScheduleList::ApplyLanguage() {
  QStringList heads;
  for (const ColumnDesign& column : kColumns) heads.append(Shown(column.headText));
  table_->setHorizontalHeaderLabels(heads);
  edit_->setText(Shown(texts::kScheduleEdit));
  delete_->setText(Shown(texts::kScheduleDelete));
  close_->setText(Shown(texts::kScheduleClose));
}

}  // namespace varek
