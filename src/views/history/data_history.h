// The data history viewer: the samples of one day in a grid, narrowed by a query that is put
// together from limits of time and value, and written to a file on demand. The window shows; the
// rules of limits and queries, the reading of rows and the export stand in files of their own.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "core/forms.h"
#include "platform/storage/database.h"
#include "views/kit/windows/design_layout.h"
#include "views/kit/windows/sticky_panels.h"
#include "views/kit/windows/view_window.h"

class QLabel;
class QTableView;

namespace varek {

class ExportPanel;
class HistoryGrid;
class MonthCalendar;
class MovablePanel;
class PictureButton;
class QueryPanel;

class Form2 final : public ViewWindow {
 public:
  static constexpr int kNumber = 2;

  /// Today is the day; nothing is shown before the first query. A missing picture throws
  /// RuntimeError 53.
  Form2();
  ~Form2() override;

  void ApplyLanguage();

  QueryPanel& Query() { return *Frame2; }
  MonthCalendar& Calendar() { return *Picture11; }
  QTableView& Grid() { return *DBgrid1; }
  PictureButton& ExportButton() { return *exportButton_; }
  /// Whether an export shows its progress.
  bool IsExporting() const;
  /// Where the grid stands.
  std::string Position() const;

 protected:
  void Form_Resize() override;

 private:
  void OpenData();
  void MakeStrip();
  void MakeGrid();
  void MakePanels();
  void Layout();
  void PlaceGrid();
  void PlaceStrip();

  void Command4_Click();
  void Picture11_Click();
  void TogglePanel(MovablePanel& panel);
  void TellNoData();
  void Export();
  void ExportFile(const std::string& fileName);

  std::string QueryText();
  void PrepareGrid();
  void ShowPosition();
  void ShowDay();

  std::optional<platform::Database> Data1;
  std::string DayTable;     ///< "yyyymmdd"
  std::string shownTable_;  ///< that of the rows in the grid
  StickyPanels panels_;
  DesignLayout layout_;

  PictureButton* queryButton_ = nullptr;
  PictureButton* calendarButton_ = nullptr;
  PictureButton* exportButton_ = nullptr;
  QLabel* recordCaption_ = nullptr;
  QLabel* position_ = nullptr;
  QLabel* notice_ = nullptr;  ///< what came of the last query or export
  HistoryGrid* rows_ = nullptr;
  QTableView* DBgrid1 = nullptr;
  QueryPanel* Frame2 = nullptr;
  MovablePanel* Picture8 = nullptr;
  MonthCalendar* Picture11 = nullptr;
  ExportPanel* Picture13 = nullptr;
};

/// The one instance.
FormSlot<Form2>& DataHistory();

/// Shows the data history, or raises it.
void ShowDataHistory();

}  // namespace varek
