#include "settings/notification/event_grid.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>
#include <utility>

#include "platform/errors/guard.h"
#include "platform/text/text.h"
#include "texts/language.h"
#include "views/kit/controls/keys.h"
#include "views/kit/controls/one_line.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"

namespace varek {

namespace {

enum Column { kNameColumn, kEnableColumn, kTextColumn, kColumnCount };

constexpr int kOverloadRow = 9;
constexpr int kLeastRowHeight = 26;
constexpr int kEnableWidth = 70;
constexpr int kBoxInset = 2;  ///< pixels, of the edit box from the cell's left and top edge
constexpr int kGridLine = 1;

constexpr std::array<size_t, kColumnCount> kHeadings{
    texts::kNotifyHeadEvent, texts::kNotifyHeadSend, texts::kNotifyHeadText};

QString Enabled() { return QStringLiteral("YES"); }

/// A menu of the edit box, a message box or another program only borrows the focus.
bool IsLostForGood(const QEvent& event) {
  const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
  return reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason;
}

}  // namespace

EventGrid::EventGrid(QWidget* parent, std::string name)
    : QTableWidget(kEventCount, kColumnCount, parent),
      name_(std::move(name)),
      editBox_(new QLineEdit(viewport())) {
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setTabKeyNavigation(false);
  SetUpColumns();
  FillCells();
  editBox_->hide();
  editBox_->installEventFilter(this);
  connect(this, &QTableWidget::cellClicked, this, [this](int row, int column) {
    platform::Guarded(name_ + " MSFlexGrid1_Click", [&] { ClickCell(row, column); });
  });
}

void EventGrid::SetUpColumns() {
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(
      std::max(kLeastRowHeight, BoxHeight(*this) + kBoxInset + kGridLine));
  QHeaderView& head = *horizontalHeader();
  head.setHighlightSections(false);
  head.setSectionResizeMode(kNameColumn, QHeaderView::ResizeToContents);
  head.setSectionResizeMode(kEnableColumn, QHeaderView::Fixed);
  head.setSectionResizeMode(kTextColumn, QHeaderView::Stretch);
  setColumnWidth(kEnableColumn, kEnableWidth);
}

void EventGrid::FillCells() {
  for (int row = 0; row < kEventCount; ++row) {
    for (int column = 0; column < kColumnCount; ++column)
      setItem(row, column, new QTableWidgetItem);
    item(row, kEnableColumn)->setTextAlignment(Qt::AlignCenter);
  }
}

void EventGrid::ApplyLanguage() {
  QStringList headings;
  for (const size_t number : kHeadings) headings << Shown(number);
  setHorizontalHeaderLabels(headings);
  for (int row = 0; row < kEventCount; ++row) {
    const std::string& words = EventText[static_cast<size_t>(row)];
    item(row, kNameColumn)->setText(Shown(words));
  }
}

void EventGrid::ShowMessages(const EventFlags& enable, const EventMessages& text) {
  CloseBox();
  for (int row = 0; row < kEventCount; ++row) {
    const auto event = static_cast<size_t>(row);
    item(row, kEnableColumn)->setText(enable[event] ? Enabled() : QString());
    item(row, kTextColumn)->setText(Shown(text[event]));
  }
  setRowHidden(kOverloadRow, !DataCenter.HasLoad);
}

void EventGrid::TakeMessages(EventFlags& enable, EventMessages& text) {
  AcceptBox();
  for (int row = 0; row < kEventCount; ++row) {
    const auto event = static_cast<size_t>(row);
    enable[event] = ToFlag(item(row, kEnableColumn)->text() == Enabled());
    text[event] = platform::OneLine(item(row, kTextColumn)->text().toStdString());
  }
}

void EventGrid::ClickCell(int row, int column) {
  if (column == kEnableColumn) Toggle(row);
  if (column == kTextColumn) OpenBox(row);
}

void EventGrid::Toggle(int row) {
  QTableWidgetItem& cell = *item(row, kEnableColumn);
  cell.setText(cell.text() == Enabled() ? QString() : Enabled());
}

void EventGrid::OpenBox(int row) {
  AcceptBox();
  openRow_ = row;
  PlaceBox();
  editBox_->show();
  editBox_->setFocus();
  editBox_->setText(item(row, kTextColumn)->text());
}

void EventGrid::PlaceBox() {
  if (openRow_ < 0) return;
  const QRect cell = visualRect(model()->index(openRow_, kTextColumn));
  editBox_->setGeometry(cell.adjusted(kBoxInset, kBoxInset, 0, 0));
}

/// The cell is forgotten first, since the box loses its focus on the way.
void EventGrid::CloseBox() {
  if (openRow_ < 0) return;
  openRow_ = -1;
  if (editBox_->hasFocus()) setFocus();
  editBox_->hide();
}

void EventGrid::AcceptBox() {
  if (openRow_ < 0) return;
  item(openRow_, kTextColumn)->setText(Shown(OneLineOf(*editBox_)));
  CloseBox();
}

bool EventGrid::TakeEditKey(int key) {
  if (IsEnterKey(key)) {
    AcceptBox();
    return true;
  }
  if (key != Qt::Key_Escape) return false;
  CloseBox();
  return true;
}

bool EventGrid::eventFilter(QObject* watched, QEvent* event) {
  if (watched != editBox_) return QTableWidget::eventFilter(watched, event);
  bool taken = false;
  platform::Guarded(name_ + " Text7", [&] {
    if (event->type() == QEvent::KeyPress)
      taken = TakeEditKey(static_cast<QKeyEvent*>(event)->key());
    if (event->type() == QEvent::FocusOut && IsLostForGood(*event)) AcceptBox();
  });
  return taken;
}

/// Enter and Space do to the current cell what a click does.
void EventGrid::keyPressEvent(QKeyEvent* event) {
  const bool acts = IsClickKey(event->key());
  if (!acts || currentRow() < 0) return QTableWidget::keyPressEvent(event);
  if (event->isAutoRepeat()) return;
  platform::Guarded(name_ + " MSFlexGrid1_KeyPress",
                    [&] { ClickCell(currentRow(), currentColumn()); });
}

void EventGrid::scrollContentsBy(int dx, int dy) {
  QTableWidget::scrollContentsBy(dx, dy);
  platform::Guarded(name_ + " MSFlexGrid1_Scroll", [this] { PlaceBox(); });
}

void EventGrid::updateGeometries() {
  QTableWidget::updateGeometries();
  platform::Guarded(name_ + " MSFlexGrid1_Resize", [this] { PlaceBox(); });
}

}  // namespace varek
