// The oscilloscope: one day's samples as curves over time, with the day's events as markers. A day
// and a run of hours are chosen; the plot is zoomed, panned and read with the mouse, and a
// miniature of all that is loaded leads to any part of it. It writes nothing.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "core/forms.h"
#include "platform/storage/database.h"
#include "views/kit/windows/design_layout.h"
#include "views/kit/windows/sticky_panels.h"
#include "views/kit/windows/view_window.h"
#include "views/oscilloscope/curves/scope_chart.h"
#include "views/oscilloscope/curves/scope_data.h"
#include "views/oscilloscope/curves/scope_view.h"
#include "views/oscilloscope/scope_overview.h"

class QLabel;
class QListWidget;
class QMouseEvent;

namespace varek {

class BusyBar;
class CurvePanel;
class MonthCalendar;
class MovablePanel;
class PictureButton;
class SurfaceView;
class TipPlate;

/// The oscilloscope's window.
class Form3 final : public ViewWindow {
 public:
  static constexpr int kNumber = 3;

  /// Takes today as the day; the present hour is loaded when the window is activated. A missing
  /// picture throws RuntimeError 53. Without the databases the window opens and has no data.
  Form3();
  ~Form3() override;

  void ApplyLanguage();
  /// Loads the selected hours of the day and shows them; a day or hours without data are reported
  /// in a message. With no hours selected nothing happens.
  void LoadDayData();

 protected:
  void Form_Resize() override;
  void Form_Activate() override;

 private:
  void OpenData();
  void MakePlot();
  void MakeButtons();
  void MakeMiniature();
  void MakeHours();
  void MakeCalendar();
  void Resizeinit();
  void ReWindow();
  void PlacePlate();
  std::array<MovablePanel*, 4> Panels() const;

  HourLines SelectedLines() const;
  void PostHoursChosen();
  void HoursChosen();
  void DayChosen();
  void SwitchCurves();
  void CurvesClicked();
  void ResetView();
  void WholeDay();
  void ZoomIn();
  void ZoomOut();
  void PlotPressed(const QMouseEvent& event);
  void PlotHoveredOrDragged(const QMouseEvent& event);
  void PlotReleased(const QMouseEvent& event);
  void MiniatureDragged(const QMouseEvent& event);
  void MiniatureReleased(const QMouseEvent& event);
  /// Shows the tip `text` in the colour of `code` beside the pointer, or with `selected` false
  /// hides it.
  void Movlab(int x, int y, bool selected, const std::string& text, int code);

  void ShowData();
  void ShowView();
  void ShowRange();

  std::string dayTable_;  ///< "yyyymmdd"
  std::optional<platform::Database> sampleFile_;
  std::optional<platform::Database> eventFile_;
  ScopeData data_;
  ScopeView view_;
  ScopeChart chart_;
  ScopeOverview overview_;
  DesignLayout layout_;
  StickyPanels panels_;
  ScopePoint bandCorner_;
  bool hoursWait_ = false;  ///< HoursChosen is on its way

  QWidget* room_ = nullptr;  ///< right of the panels' column
  SurfaceView* plot_ = nullptr;
  TipPlate* tip_ = nullptr;
  QWidget* plate_ = nullptr;  ///< below the plot, with the buttons
  QLabel* rangeLabel_ = nullptr;
  PictureButton* zoomInButton_ = nullptr;
  PictureButton* zoomOutButton_ = nullptr;
  PictureButton* resetButton_ = nullptr;
  PictureButton* wholeDayButton_ = nullptr;
  MovablePanel* calendarPanel_ = nullptr;
  MonthCalendar* calendar_ = nullptr;
  MovablePanel* hoursPanel_ = nullptr;
  QListWidget* hours_ = nullptr;
  CurvePanel* curves_ = nullptr;
  MovablePanel* miniaturePanel_ = nullptr;
  SurfaceView* miniature_ = nullptr;
  BusyBar* busyBar_ = nullptr;
};

/// The one instance.
FormSlot<Form3>& Oscilloscope();

/// Shows the oscilloscope, or raises it.
void ShowOscilloscope();

}  // namespace varek
