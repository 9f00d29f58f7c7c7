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

/// The dashboard.
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

  /// Where a search for the unit shows itself.
  SearchBox& Search() { return *search_; }

 protected:
  void Form_Resize() override;
  void Form_Activate() override;

 private:
  /// Lines of the tab that tells what the unit is.
  static constexpr size_t kRatingCount = 7;

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
  void ShowLampText(Lamp lamp);
  void HideLampText();

  void NeedleTick();

  InstrumentPanel panel_;
  std::map<std::string, QPixmap> lampPictures_;  ///< by file name
  QPixmap backgroundPicture_;
  DesignLayout layout_;

  PictureView* background_ = nullptr;
  QWidget* tabs_ = nullptr;  ///< their row and what they show
  QTabBar* tabBar_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  QWidget* instrumentView_ = nullptr;
  QComboBox* recentMessages_ = nullptr;
  std::array<QLabel*, kRatingCount> ratingCaptions_{};
  std::array<QLabel*, kRatingCount> ratings_{};
  std::array<PictureButton*, kControlCount> controlButtons_{};
  std::array<PictureView*, kLampCount> statusLamps_{};
  Bubble* bubble_ = nullptr;
  std::optional<Lamp> explained_;  ///< the lamp that the pointer rests on
  SearchBox* search_ = nullptr;
  std::unique_ptr<MenuStrip> menu_;

  platform::Timer lampTimer_;
  platform::Timer needleTimer_;
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
