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
#include "records/files/databases.h"
#include "records/files/sample_columns.h"
#include "views/history/export_panel.h"
#include "views/history/history_grid.h"
#include "views/history/query_panel.h"
#include "views/history/rows/history_export.h"
#include "views/history/save_dialog.h"
#include "views/kit/calendar/month_calendar.h"
#include "views/kit/controls/picture_button.h"
#include "views/kit/looks/colors.h"
#include "views/kit/looks/shown.h"
#include "views/kit/looks/style.h"
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
      dayTable_(GetTodayText()),
      panels_({Panel{}, Panel{}}, WhenResized::StayInside) {
  Enter("Form_Load", [this] { OpenData(); });
  Client()->setStyleSheet(PositionSheet());
  MakeStrip();
  MakeGrid();
  MakePanels();
  ApplyLanguage();
  Layout();
}

Form2::~Form2() {
  // Its parts go after it, and must not call it then.
  disconnect(grid_->selectionModel(), nullptr, this, nullptr);
}

/// Without the file the window opens all the same, and has no data.
void Form2::OpenData() {
  sampleFile_.emplace(platform::ProgramPath(kDataFile), platform::Access::ReadOnly);
}

void Form2::MakeStrip() {
  const auto button = [this](const char* place, auto act) {
    auto* made = new PictureButton(Client(), QStringLiteral("button"), place, act);
    made->resize(kButtonSize);
    return made;
  };
  queryButton_ = button("form2 QueryButton_MouseUp", [this] { TogglePanel(*queryPanel_); });
  calendarButton_ =
      button("form2 CalendarButton_MouseUp", [this] { TogglePanel(*calendarPanel_); });
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
  grid_ = new QTableView(Client());
  grid_->setModel(rows_);
  grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
  grid_->setSelectionMode(QAbstractItemView::SingleSelection);
  grid_->setTabKeyNavigation(false);
  grid_->setAlternatingRowColors(true);
  grid_->verticalHeader()->hide();
  grid_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  grid_->verticalHeader()->setDefaultSectionSize(RowHeight(*grid_, kRowHeight));
  QHeaderView& heads = *grid_->horizontalHeader();
  heads.setSectionResizeMode(QHeaderView::Stretch);
  heads.setDefaultAlignment(Qt::AlignCenter | Qt::Alignment{Qt::TextWordWrap});
  heads.setMinimumSectionSize(kColumnWidth);
  heads.setStyleSheet(
      QStringLiteral("QHeaderView::section { font-size: 11px; padding: 2px 1px; }"));
  heads.setFixedHeight(std::max(kHeadHeight, 2 * LineHeight(heads) + kHeadEdges));
  heads.setHighlightSections(false);
  connect(grid_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          [this] { Enter("Data1_Reposition", [this] { ShowPosition(); }); });
}

void Form2::MakePanels() {
  queryPanel_ = new QueryPanel(Client(), panels_, kQueryPanel, [this] { RunQuery(); });
  calendarPanel_ = new MovablePanel(Client(), "form2 Picture8", panels_, kCalendarPanel);
  calendar_ = new MonthCalendar(calendarPanel_, "form2 Picture11_Click", [this] { DayChosen(); });
  calendar_->move(kMargin, MovablePanel::kTitleHeight);
  calendarPanel_->resize(calendar_->width() + 2 * kMargin,
                         calendar_->height() + MovablePanel::kTitleHeight + kMargin);
  calendarPanel_->TellPanels();
  for (MovablePanel* panel : std::initializer_list<MovablePanel*>{queryPanel_, calendarPanel_})
    panel->OnPutAway([this, panel] { TogglePanel(*panel); });
  exportPanel_ = new ExportPanel(Client());
}

void Form2::Layout() {
  panels_.At(kQueryPanel).left = kMargin;
  panels_.At(kQueryPanel).top = kStripHeight;
  panels_.At(kCalendarPanel).left = kMargin;
  panels_.At(kCalendarPanel).top = kStripHeight + queryPanel_->height() + kMargin;
  const QSize client = Client()->size();
  grid_->setGeometry(kPanelColumn, kStripHeight, client.width() - kPanelColumn - kMargin,
                     client.height() - kStripHeight - kMargin);
  layout_.Resizeinit(client, {grid_});
  PrepareGrid();
  Form_Resize();
}

void Form2::Form_Resize() {
  PlaceGrid();
  PlaceStrip();
  panels_.SetClientSize(Client()->width(), Client()->height());
  panels_.ReWindow();
  queryPanel_->FollowPanels();
  calendarPanel_->FollowPanels();
}

/// Beside the column in which the panels stand at first. With both put away the grid has the window
/// for itself.
void Form2::PlaceGrid() {
  layout_.Apply(Client()->size());
  const bool alone = queryPanel_->isHidden() && calendarPanel_->isHidden();
  QRect grid = grid_->geometry();
  grid.setTop(kStripHeight);
  grid.setLeft(alone ? kMargin : std::max(grid.left(), kPanelColumn));
  grid_->setGeometry(grid);
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
  SetCaption(Shown(texts::kHistoryCaption));
  queryButton_->SetText(Shown(texts::kHistoryQueryPanel));
  calendarButton_->SetText(Shown(texts::kHistoryCalendar));
  exportButton_->SetText(Shown(texts::kHistoryExport));
  recordCaption_->setText(Shown(texts::kHistoryRecord));
  notice_->clear();
  rows_->ApplyLanguage();
  queryPanel_->ApplyLanguage();
  calendar_->ApplyLanguage();
  calendar_->setToolTip(Shown(texts::kHistoryChooseDay));
  exportPanel_->ApplyLanguage();
  ShowDay();
  PlaceStrip();
}

void Form2::ShowDay() {
  calendarPanel_->SetTitle(Shown(texts::kHistoryCalendar) + QStringLiteral("  ") +
                           Shown(dayTable_));
}

/// The keyboard goes on in the grid when the panel that it was in goes.
void Form2::TogglePanel(MovablePanel& panel) {
  if (panel.isAncestorOf(focusWidget())) grid_->setFocus();
  panel.setVisible(panel.isHidden());
  panel.raise();
  panel.TellPanels();
  Form_Resize();
}

void Form2::DayChosen() {
  const std::string table =
      platform::FormatDayName({calendar_->Year(), calendar_->Month(), calendar_->Day()});
  if (!TableExists(table)) return TellNoData();
  dayTable_ = table;
  ShowDay();
}

void Form2::TellNoData() {
  Tell(LangText[texts::kNoDataForDay] + "!", platform::MessageIcon::Information);
}

/// The names of the columns are the table's own; no row is read for them.
std::string Form2::QueryText() {
  const HistoryRows none(
      sampleFile_->OpenRecordset("Select * From [" + dayTable_ + "] Where 1 = 0"));
  return HistoryQuery(dayTable_, none.ColumnNames(), queryPanel_->Limits());
}

/// What the database refuses is a limit that is no number: the table is there, and its clauses are
/// ours.
void Form2::RunQuery() {
  notice_->clear();
  if (!sampleFile_) Enter("OpenData", [this] { OpenData(); });
  if (!sampleFile_ || !sampleFile_->HasTable(dayTable_)) return TellNoData();
  std::shared_ptr<HistoryRows> found;
  const bool accepted = platform::Guarded("form2 Data1_Refresh", [&] {
    found = std::make_shared<HistoryRows>(sampleFile_->OpenRecordset(QueryText()));
  });
  if (!accepted) return Tell(LangText[texts::kHistoryBadLimit]);
  rows_->ShowRows(std::move(found));
  shownTable_ = dayTable_;
  PrepareGrid();
  grid_->setCurrentIndex(rows_->index(0, 0));
  ShowPosition();
  notice_->setText(rows_->rowCount() > 0 ? QString() : Shown(texts::kHistoryNothingFound));
}

/// What the unit does not measure is hidden, with the limits of it.
void Form2::PrepareGrid() {
  for (int column = 0; column < rows_->columnCount(); ++column)
    grid_->setColumnHidden(column, !IsMeasured(column));
  queryPanel_->ShowRows();
}

void Form2::ShowPosition() {
  position_->setText(
      Shown(PositionText(shownTable_, grid_->currentIndex().row(), rows_->rowCount())));
}

bool Form2::IsExporting() const { return !exportPanel_->isHidden(); }

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
  exportPanel_->Open();
  const bool written = platform::Guarded("form2 ExportFile", [&] {
    WriteRows(fileName, *rows, [&alive](double percent) {
      platform::DoEvents();
      if (alive) alive->exportPanel_->SetProgress(percent);
      return !alive.isNull();
    });
  });
  if (!alive) return;
  exportPanel_->hide();
  exportButton_->setEnabled(true);
  notice_->setText(written ? Shown(texts::kHistoryExportFinished) : QString());
  if (!written) Tell(LangText[texts::kHistoryCannotWrite]);
}

}  // namespace varek
