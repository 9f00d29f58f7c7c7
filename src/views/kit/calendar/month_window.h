// A window around a month: its title, the lists from which year and month are chosen, the button
// that leads back to today, the days, and panels that are dragged about above them. The event log
// and the schedule calendar are such windows; they say what a day shows and what a click on it
// does.
#pragma once

#include <QRect>
#include <string>
#include <vector>

#include "views/kit/calendar/month_grid.h"
#include "views/kit/windows/design_layout.h"
#include "views/kit/windows/sticky_panels.h"
#include "views/kit/windows/view_window.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace varek {

class MovablePanel;

/// Where the parts of the month stand in a client area of the start size.
struct MonthPlaces {
  QRect title;
  QRect years;
  QRect months;
  QRect today;
  QRect days;
};

struct ShownDay {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
};

class MonthWindow : public ViewWindow {
 public:
  /// The number, `start` and `least` are those of a ViewWindow; `rule` is that of `panels`.
  /// Makes the choosers, which come first for the keyboard.
  MonthWindow(int formNumber, QSize start, QSize least, std::vector<Panel> panels,
              WhenResized rule);

  void ApplyLanguage();

 protected:
  static constexpr int kButtonHeight = 28;  ///< in the lowest window too: Chinese letters are high

  /// Makes the days; what was made before them comes before them for the keyboard.
  void MakeDays(const MonthGridColors& colors);
  /// From now on the panel follows the place of its number.
  void AddPanel(MovablePanel& panel);
  /// Puts the month where it stands in the design, which `others` belong to as they stand.
  void LayoutMonth(const MonthPlaces& places, const std::vector<QWidget*>& others);

  /// The list of years ends before today. Such a year can't be chosen and none is selected, but its
  /// month is shown all the same until another year is chosen.
  void SelectToday();
  /// Title and days anew, with the pictures of each day.
  void RepaintMonth();
  /// Keeps the panels inside the window, and moves them to where they stand now.
  void ReWindow();

  /// Another month was chosen, which has the selected day; it is to be read and painted.
  virtual void ShowMonth() = 0;
  virtual void ClickDay(int day) = 0;
  virtual std::vector<const QPixmap*> PicturesOf(int day) const = 0;

  void Form_Resize() override;

  ShownDay selected_;
  StickyPanels panels_;
  QPushButton* today_ = nullptr;
  MonthGrid* days_ = nullptr;

 private:
  void MakeChoosers();
  void ChooseYear(int index);
  void ChooseMonth(int index);
  void GoToToday();
  void GoToMonth();

  const std::string name_;
  QLabel* title_ = nullptr;
  QComboBox* years_ = nullptr;
  QComboBox* months_ = nullptr;
  DesignLayout layout_;
  std::vector<MovablePanel*> shownPanels_;
};

}  // namespace varek
