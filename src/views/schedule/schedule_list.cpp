#include "views/schedule/schedule_list.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <array>
#include <utility>

#include "texts/text_numbers.h"
#include "views/kit/controls/style.h"
#include "views/schedule/schedule_controls.h"

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
  Command4 = MakeScheduleButton(this, "Command4", std::move(handlers.edit));
  Command5 = MakeScheduleButton(this, "Command5", std::move(handlers.remove));
  Command3 = MakeScheduleButton(this, "Command3", std::move(handlers.close));
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(kMargin, kTitleHeight, kMargin, kMargin);
  layout->addWidget(MSFlexGrid1, 0, 0, 1, 4);
  layout->addWidget(Command4, 1, 0);
  layout->addWidget(Command5, 1, 1);
  layout->addWidget(Command3, 1, 3);
  layout->setColumnStretch(2, 1);
  resize(kSize);
}

void ScheduleList::MakeGrid() {
  MSFlexGrid1 = new QTableWidget(0, static_cast<int>(kColumns.size()), this);
  MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
  MSFlexGrid1->setStyleSheet(QStringLiteral("font-size: %1px;").arg(kTextSize));
  MSFlexGrid1->setEditTriggers(QAbstractItemView::NoEditTriggers);
  MSFlexGrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
  MSFlexGrid1->setSelectionMode(QAbstractItemView::SingleSelection);
  MSFlexGrid1->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  MSFlexGrid1->setTabKeyNavigation(false);
  MSFlexGrid1->verticalHeader()->hide();
  MSFlexGrid1->verticalHeader()->setDefaultSectionSize(RowHeight(*MSFlexGrid1, kRowHeight));
  QHeaderView& heads = *MSFlexGrid1->horizontalHeader();
  heads.setHighlightSections(false);
  heads.setStretchLastSection(true);  // It gives way to the scroll bar.
  heads.moveSection(kNumber, 0);
  const int width = kSize.width() - 2 * kMargin;
  for (int column = 0; column < MSFlexGrid1->columnCount(); ++column)
    heads.resizeSection(column, width * kColumns[static_cast<size_t>(column)].percent / 100);
}

void ScheduleList::ShowEntries(const std::vector<ScheduleEntry>& entries) {
  MSFlexGrid1->setRowCount(0);
  for (const ScheduleEntry& entry : entries) {
    if (entry.number != kHole) AddRow(entry);
  }
}

void ScheduleList::AddRow(const ScheduleEntry& entry) {
  const int row = MSFlexGrid1->rowCount();
  MSFlexGrid1->setRowCount(row + 1);
  const auto put = [&](int column, const std::string& text) {
    auto* item = new QTableWidgetItem(QString::fromStdString(text));
    item->setToolTip(item->text());
    MSFlexGrid1->setItem(row, column, item);
  };
  put(kNumber, std::to_string(entry.number));
  put(kTime, entry.time);
  put(kAction, EventCodeText(entry.event));
  put(kRepeat, ReptText(entry.rept));
  put(kRestart, NoteText(entry.note));
}

QString ScheduleList::SelectedText(int column) const {
  const auto rows = MSFlexGrid1->selectionModel()->selectedRows();
  return rows.isEmpty() ? QString() : MSFlexGrid1->item(rows.front().row(), column)->text();
}

std::optional<int> ScheduleList::SelectedNumber() const {
  bool isNumber = false;
  const int number = SelectedText(kNumber).toInt(&isNumber);
  return isNumber ? std::optional(number) : std::nullopt;
}

std::string ScheduleList::SelectedTime() const { return SelectedText(kTime).toStdString(); }

void ScheduleList::ApplyLanguage() {
  QStringList heads;
  for (const ColumnDesign& column : kColumns) heads.append(ScheduleText(column.headText));
  MSFlexGrid1->setHorizontalHeaderLabels(heads);
  Command4->setText(ScheduleText(texts::kScheduleEdit));
  Command5->setText(ScheduleText(texts::kScheduleDelete));
  Command3->setText(ScheduleText(texts::kScheduleClose));
}

}  // namespace varek
