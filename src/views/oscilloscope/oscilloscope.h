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

  const ScopeData& Data() const { return data_; }
  const ScopeView& View() const { return view_; }
  const ScopeChart& Chart() const { return chart_; }
  CurvePanel& Curves() const { return *Picture7; }
  QListWidget& Hours() const { return *List1; }
  MonthCalendar& Calendar() const { return *Picture11; }
  TipPlate& Tip() const { return *Label1; }
  SurfaceView& Plot() const { return *Picture1; }
  SurfaceView& Miniature() const { return *Picture2; }

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

  HourLines SelectedLines() const;
  void PostHoursClick();
  void List1_Click();
  void Picture11_Click();
  void SwitchCurves();
  void Check1_Click();
  void ResetView();
  void WholeDay();
  void Command1_Click();
  void Command2_Click();
  void Picture1_MouseDown(const QMouseEvent& event);
  void Picture1_MouseMove(const QMouseEvent& event);
  void Picture1_MouseUp(const QMouseEvent& event);
  void Picture2_MouseMove(const QMouseEvent& event);
  void Picture2_MouseUp(const QMouseEvent& event);
  /// Shows the tip `text` in the colour of `code` beside the pointer, or with `selected` false
  /// hides it.
  void Movlab(int x, int y, bool selected, const std::string& text, int code);

  void ShowData();
  void ShowView();
  void ShowRange();

  std::string DayTable;  ///< "yyyymmdd"
  std::optional<platform::Database> Data1;
  std::optional<platform::Database> Data2;
  ScopeData data_;
  ScopeView view_;
  ScopeChart chart_;
  ScopeOverview overview_;
  DesignLayout layout_;
  StickyPanels panels_;
  ScopePoint bandCorner_;
  bool clickWaits_ = false;  ///< List1_Click is on its way

  QWidget* room_ = nullptr;  ///< right of the panels' column
  SurfaceView* Picture1 = nullptr;
  TipPlate* Label1 = nullptr;
  QWidget* Picture15 = nullptr;
  QLabel* Label2 = nullptr;
  PictureButton* Command1 = nullptr;
  PictureButton* Command2 = nullptr;
  PictureButton* resetButton_ = nullptr;
  PictureButton* wholeDayButton_ = nullptr;
  MovablePanel* Picture5 = nullptr;  ///< calendar
  MonthCalendar* Picture11 = nullptr;
  MovablePanel* Picture6 = nullptr;  ///< hours
  QListWidget* List1 = nullptr;
  CurvePanel* Picture7 = nullptr;
  MovablePanel* Picture8 = nullptr;  ///< miniature
  SurfaceView* Picture2 = nullptr;
  BusyBar* Picture9 = nullptr;
};

/// The one instance.
FormSlot<Form3>& Oscilloscope();

/// Shows the oscilloscope, or raises it.
void ShowOscilloscope();

}  // namespace varek
