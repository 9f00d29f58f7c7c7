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

/// The data history's window.
class Form2 final : public ViewWindow {
 public:
  static constexpr int kNumber = 2;

  /// Today is the day; nothing is shown before the first query. A missing picture throws
  /// RuntimeError 53.
  Form2();
  ~Form2() override;

  void ApplyLanguage();

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

  void RunQuery();
  void DayChosen();
  void TogglePanel(MovablePanel& panel);
  void TellNoData();
  bool IsExporting() const;
  void Export();
  void ExportFile(const std::string& fileName);

  std::string QueryText();
  void PrepareGrid();
  void ShowPosition();
  void ShowDay();

  std::optional<platform::Database> sampleFile_;
  std::string dayTable_;    ///< "yyyymmdd"
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
  QTableView* grid_ = nullptr;
  QueryPanel* queryPanel_ = nullptr;
  MovablePanel* calendarPanel_ = nullptr;
  MonthCalendar* calendar_ = nullptr;
  ExportPanel* exportPanel_ = nullptr;
};

/// The one instance.
FormSlot<Form2>& DataHistory();

/// Shows the data history, or raises it.
void ShowDataHistory();

}  // namespace varek
