// The dashboard, the main window: three tabs (the dial panel, what the unit is, tests and
// shutdowns) beside a column of status lamps, the strip of menu pictures above, and the list of the
// newest debug lines. It shows the live state and owns no rule about the unit.
#pragma once

#include <QPixmap>
#include <array>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "core/forms.h"
#include "platform/time/timers.h"
#include "views/dashboard/control_buttons.h"
#include "views/dashboard/instrument_panel.h"
#include "views/dashboard/menu_sizes.h"
#include "views/dashboard/status_lamps.h"
#include "views/kit/windows/design_layout.h"
#include "views/kit/windows/view_window.h"

class QComboBox;
class QLabel;
class QStackedWidget;
class QTabBar;

namespace varek {

class Bubble;
class MenuStrip;
class PictureButton;
class PictureView;
class SearchBox;

class Form1 final : public ViewWindow {
 public:
  static constexpr int kNumber = 1;

  /// Loads all pictures; a missing one throws RuntimeError 53. The timers start when the window
  /// is activated.
  Form1();
  ~Form1() override;

  /// Puts the texts of the present language on all controls.
  void ApplyLanguage();
  /// Fills the list with DebugLines, the newest last and selected.
  void ShowDebugLines();

  /// The parts, for those who show something in them, and for tests.
  SearchBox& Search() { return *search_; }
  const InstrumentPanel& Panel() const { return panel_; }
  PictureView* Lamp(int lamp) const { return Picture8.at(static_cast<size_t>(lamp)); }
  PictureButton* Button(int number) const {
    return Picture7.at(static_cast<size_t>(number - kFirstControl));
  }
  QWidget* MenuItem(int item) const;
  /// The one of the ten lines that is selected.
  std::string SelectedLine() const;

 protected:
  void Form_Resize() override;
  void Form_Activate() override;

 private:
  void MakeBackground();
  void MakeTabs();
  void MakeDetailsTab();
  void MakeControlTab();
  void MakeLamps();
  void LayoutDashboard();
  void PlaceLamps();
  void PlacePages();
  void KeepPanelWhole();
  void UpdateStatusLamps();
  void ShowRatings();
  void ShowLampText(int lamp);
  void HideLampText();

  void Timer2_Timer();
  void Timer4_Timer();

  InstrumentPanel panel_;
  std::map<std::string, QPixmap> pictures_;  ///< of the lamps, by file name
  QPixmap back_;
  DesignLayout layout_;

  PictureView* BackPic = nullptr;
  QWidget* Tab1 = nullptr;
  QTabBar* tabBar_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  QWidget* Picture11 = nullptr;
  QComboBox* Combo1 = nullptr;
  std::array<QLabel*, 7> captions_{};
  std::array<QLabel*, 7> Label4{};
  std::array<PictureButton*, 6> Picture7{};
  std::array<PictureView*, kLampCount> Picture8{};
  Bubble* Picture6 = nullptr;
  std::optional<int> explained_;  ///< the lamp that the pointer rests on
  SearchBox* search_ = nullptr;
  std::unique_ptr<MenuStrip> menu_;

  platform::Timer Timer2;
  platform::Timer Timer4;
};

/// The one instance.
FormSlot<Form1>& Dashboard();

/// Shows the dashboard, or raises it.
void ShowDashboard();

/// What each menu picture opens, from left to right; an empty one opens nothing.
using MenuOpeners = std::array<std::function<void()>, kMenuItems>;

/// Hands in the windows of the menu, none of which the dashboard knows.
void SetMenuOpeners(const MenuOpeners& open);

/// Lets the searches and the list of debug lines show themselves on the dashboard from now on.
void ConnectDashboard();

}  // namespace varek
