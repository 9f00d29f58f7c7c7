#include "views/history/data_history.h"

#include <QHeaderView>
#include <QLabel>
#include <QPointer>
#include <QTableView>
#include <algorithm>
#include <utility>

#include "core/data_center.h"
#include "drawing/palette.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/guard.h"
#include "platform/system/paths.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "records/databases.h"
#include "views/history/export_panel.h"
#include "views/history/history_grid.h"
#include "views/history/query_panel.h"
#include "views/history/rows/history_export.h"
#include "views/history/rows/history_texts.h"
#include "views/history/save_dialog.h"
#include "views/kit/calendar/month_calendar.h"
#include "views/kit/controls/colors.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/controls/style.h"
#include "views/kit/windows/movable_panel.h"

namespace varek {

namespace {

constexpr QSize kStartSize{1000, 600};
/// Both panels have their place, one above the other, beside a few columns of the grid.
constexpr QSize kLeastSize{760, 570};

constexpr int kMargin = 8;
constexpr int kStripHeight = 44;
constexpr QSize kButtonSize{104, 28};
constexpr int kPositionWidth = 170;
constexpr int kPanelColumn = 362;  ///< in which the panels stand at the start
constexpr int kRowHeight = 22;
constexpr int kHeadHeight = 40;  ///< two lines, at least
constexpr int kHeadEdges = 6;    ///< above and below them
/// The longest word of a head; the grid scrolls sideways where seven of them do not fit.
constexpr int kColumnWidth = 86;

// Numbers of the movable panels.
constexpr size_t kQueryPanel = 0;
constexpr size_t kCalendarPanel = 1;

constexpr char kExportSuffix[] = ".csv";
constexpr char kFilters[] = "CSV (*.csv)|*.csv|*.* (*.*)|*.*";

QString PositionSheet() {
  return QStringLiteral("#position { background: %1; border: 1px solid %2; border-radius: 3px; }")
      .arg(ToQColor(palette::kFace).name(), ToQColor(palette::kPanelEdge).name());
}

}  // namespace

FormSlot<Form2>& DataHistory() {
  static FormSlot<Form2> slot(Form2::kNumber);
  return slot;
}

void ShowDataHistory() { DataHistory().Get().ShowAndRaise(); }

Form2::Form2()
    : ViewWindow(kNumber, kStartSize, kLeastSize),
      DayTable(GetTodayText()),
      panels_({Panel{}, Panel{}}, WhenResized::StayInside) {
  Enter("Form_Load", [this] { OpenData(); });
  Client()->setStyleSheet(PositionSheet());
  MakeStrip();
  MakeGrid();
  MakePanels();
  ApplyLanguage();
  Layout();
  DataCenter.FormOpen[kNumber] = kSet;
}

Form2::~Form2() {
  // Its parts go after it, and must not call it then.
  disconnect(DBgrid1->selectionModel(), nullptr, this, nullptr);
  DataCenter.FormOpen[kNumber] = kClear;
}

/// Without the file the window opens all the same, and has no data.
void Form2::OpenData() {
  Data1.emplace(platform::ProgramPath(kDataFile), platform::Access::ReadOnly);
}

void Form2::MakeStrip() {
  const auto button = [this](const char* place, auto act) {
    auto* made = new PictureButton(Client(), QStringLiteral("button"), place, act);
    made->resize(kButtonSize);
    return made;
  };
  queryButton_ = button("form2 QueryButton_MouseUp", [this] { TogglePanel(*Frame2); });
  calendarButton_ = button("form2 CalendarButton_MouseUp", [this] { TogglePanel(*Picture8); });
  exportButton_ = button("form2 ExportButton_MouseUp", [this] { Export(); });
  recordCaption_ = new QLabel(Client());
  recordCaption_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  position_ = new QLabel(Client());
  position_->setObjectName(QStringLiteral("position"));
  position_->setAlignment(Qt::AlignCenter);
  notice_ = new QLabel(Client());
  notice_->setObjectName(QStringLiteral("notice"));
}

void Form2::MakeGrid() {
  rows_ = new HistoryGrid(Client());
  DBgrid1 = new QTableView(Client());
  DBgrid1->setModel(rows_);
  DBgrid1->setSelectionBehavior(QAbstractItemView::SelectRows);
  DBgrid1->setSelectionMode(QAbstractItemView::SingleSelection);
  DBgrid1->setTabKeyNavigation(false);
  DBgrid1->setAlternatingRowColors(true);
  DBgrid1->verticalHeader()->hide();
  DBgrid1->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  DBgrid1->verticalHeader()->setDefaultSectionSize(RowHeight(*DBgrid1, kRowHeight));
  QHeaderView& heads = *DBgrid1->horizontalHeader();
  heads.setSectionResizeMode(QHeaderView::Stretch);
  heads.setDefaultAlignment(Qt::AlignCenter | Qt::Alignment{Qt::TextWordWrap});
  heads.setMinimumSectionSize(kColumnWidth);
  heads.setStyleSheet(
      QStringLiteral("QHeaderView::section { font-size: 11px; padding: 2px 1px; }"));
  heads.setFixedHeight(std::max(kHeadHeight, 2 * LineHeight(heads) + kHeadEdges));
  heads.setHighlightSections(false);
  connect(DBgrid1->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this] { Enter("Data1_Reposition", [this] { ShowPosition(); }); });
}

void Form2::MakePanels() {
  Frame2 = new QueryPanel(Client(), panels_, kQueryPanel, [this] { Command4_Click(); });
  Picture8 = new MovablePanel(Client(), "form2 Picture8", panels_, kCalendarPanel);
  Picture11 = new MonthCalendar(Picture8, "form2 Picture11_Click", [this] { Picture11_Click(); });
  Picture11->move(kMargin, MovablePanel::kTitleHeight);
  Picture8->resize(Picture11->width() + 2 * kMargin,
                   Picture11->height() + MovablePanel::kTitleHeight + kMargin);
  Picture8->TellPanels();
  for (MovablePanel* panel : std::initializer_list<MovablePanel*>{Frame2, Picture8})
    panel->OnPutAway([this, panel] { TogglePanel(*panel); });
  Picture13 = new ExportPanel(Client());
}

void Form2::Layout() {
  panels_.At(kQueryPanel).left = kMargin;
  panels_.At(kQueryPanel).top = kStripHeight;
  panels_.At(kCalendarPanel).left = kMargin;
  panels_.At(kCalendarPanel).top = kStripHeight + Frame2->height() + kMargin;
  const QSize client = Client()->size();
  DBgrid1->setGeometry(kPanelColumn, kStripHeight, client.width() - kPanelColumn - kMargin,
                       client.height() - kStripHeight - kMargin);
  layout_.Resizeinit(client, {DBgrid1});
  PrepareGrid();
  Form_Resize();
}

void Form2::Form_Resize() {
  PlaceGrid();
  PlaceStrip();
  panels_.SetClientSize(Client()->width(), Client()->height());
  panels_.ReWindow();
  Frame2->FollowPanels();
  Picture8->FollowPanels();
}

/// Beside the column in which the panels stand at first. With both put away the grid has the window
/// for itself.
void Form2::PlaceGrid() {
  layout_.Apply(Client()->size());
  const bool alone = Frame2->isHidden() && Picture8->isHidden();
  QRect grid = DBgrid1->geometry();
  grid.setTop(kStripHeight);
  grid.setLeft(alone ? kMargin : std::max(grid.left(), kPanelColumn));
  DBgrid1->setGeometry(grid);
}

void Form2::PlaceStrip() {
  int left = kMargin;
  for (QWidget* part : {queryButton_, calendarButton_, exportButton_}) {
    part->move(left, kMargin);
    left += kButtonSize.width() + kMargin;
  }
  const int positionLeft = Client()->width() - kMargin - kPositionWidth;
  const int captionWidth = recordCaption_->sizeHint().width();
  position_->setGeometry(positionLeft, kMargin, kPositionWidth, kButtonSize.height());
  recordCaption_->setGeometry(positionLeft - kMargin - captionWidth, kMargin, captionWidth,
                              kButtonSize.height());
  notice_->setGeometry(left, kMargin, recordCaption_->x() - kMargin - left, kButtonSize.height());
}

void Form2::ApplyLanguage() {
  ViewWindow::ApplyLanguage();
  SetCaption(HistoryText(texts::kHistoryCaption));
  queryButton_->SetText(HistoryText(texts::kHistoryQueryPanel));
  calendarButton_->SetText(HistoryText(texts::kHistoryCalendar));
  exportButton_->SetText(HistoryText(texts::kHistoryExport));
  recordCaption_->setText(HistoryText(texts::kHistoryRecord));
  notice_->clear();
  rows_->ApplyLanguage();
  Frame2->ApplyLanguage();
  Picture11->ApplyLanguage();
  Picture11->setToolTip(HistoryText(texts::kHistoryChooseDay));
  Picture13->ApplyLanguage();
  ShowDay();
  PlaceStrip();
}

void Form2::ShowDay() {
  Picture8->SetTitle(HistoryText(texts::kHistoryCalendar) + QStringLiteral("  ") +
                     QString::fromStdString(DayTable));
}

/// The keyboard goes on in the grid when the panel that it was in goes.
void Form2::TogglePanel(MovablePanel& panel) {
  if (panel.isAncestorOf(focusWidget())) DBgrid1->setFocus();
  panel.setVisible(panel.isHidden());
  panel.raise();
  panel.TellPanels();
  Form_Resize();
}

void Form2::Picture11_Click() {
  const std::string table =
      platform::FormatDayName({Picture11->Year(), Picture11->Month(), Picture11->Day()});
  if (!TableExists(table)) return TellNoData();
  DayTable = table;
  ShowDay();
}

void Form2::TellNoData() {
  Tell(LangText[texts::kNoDataForDay] + "!", platform::MessageIcon::Information);
}

/// The names of the columns are the table's own; no row is read for them.
std::string Form2::QueryText() {
  const HistoryRows none(Data1->OpenRecordset("Select * From [" + DayTable + "] Where 1 = 0"));
  return HistoryQuery(DayTable, none.ColumnNames(), Frame2->Limits());
}

/// What the database refuses is a limit that is no number: the table is there, and its clauses are
/// ours.
void Form2::Command4_Click() {
  notice_->clear();
  if (!Data1) Enter("OpenData", [this] { OpenData(); });
  if (!Data1 || !Data1->HasTable(DayTable)) return TellNoData();
  std::shared_ptr<HistoryRows> found;
  const bool accepted = platform::Guarded("form2 Data1_Refresh", [&] {
    found = std::make_shared<HistoryRows>(Data1->OpenRecordset(QueryText()));
  });
  if (!accepted) return Tell(LangText[texts::kHistoryBadLimit]);
  rows_->ShowRows(std::move(found));
  shownTable_ = DayTable;
  PrepareGrid();
  DBgrid1->setCurrentIndex(rows_->index(0, 0));
  ShowPosition();
  notice_->setText(rows_->rowCount() > 0 ? QString() : HistoryText(texts::kHistoryNothingFound));
}

/// What the unit does not measure is hidden, with the limits of it.
void Form2::PrepareGrid() {
  for (int column = 0; column < rows_->columnCount(); ++column)
    DBgrid1->setColumnHidden(column, !HasColumn(column));
  Frame2->ShowRows();
}

void Form2::ShowPosition() {
  position_->setText(QString::fromStdString(
      PositionText(shownTable_, DBgrid1->currentIndex().row(), rows_->rowCount())));
}

std::string Form2::Position() const { return position_->text().toStdString(); }

bool Form2::IsExporting() const { return !Picture13->isHidden(); }

void Form2::Export() {
  if (IsExporting() || rows_->rowCount() == 0) return;
  const std::string name = shownTable_ + kExportSuffix;
  AskSaveName(*this, {LangText[texts::kHistorySaveAs], platform::ProgramFolder(), name, kFilters},
              [this](const std::string& fileName) { ExportFile(fileName); });
}

/// Yields to events after each record. A query meanwhile changes the grid only: the export keeps
/// the rows with which it began. A window that goes ends the export.
void Form2::ExportFile(const std::string& fileName) {
  const QPointer<Form2> alive(this);
  const std::shared_ptr<HistoryRows> rows = rows_->Rows();
  exportButton_->setEnabled(false);
  Picture13->Open();
  const bool written = platform::Guarded("form2 ExportFile", [&] {
    WriteRows(fileName, *rows, [&alive](double percent) {
      platform::DoEvents();
      if (alive) alive->Picture13->SetProgress(percent);
      return !alive.isNull();
    });
  });
  if (!alive) return;
  Picture13->hide();
  exportButton_->setEnabled(true);
  notice_->setText(written ? HistoryText(texts::kHistoryExportFinished) : QString());
  if (!written) Tell(LangText[texts::kHistoryCannotWrite]);
}

}  // namespace varek
