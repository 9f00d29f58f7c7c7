// The desktop's tray by the toolkit.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/desktop/tray_icon.h"

class QMenu;
class QSystemTrayIcon;

namespace platform {

/// REQUIRES the application as long as it is used.
class DesktopTray final : public TrayDriver {
 public:
  DesktopTray();
  ~DesktopTray() override;

  bool Add(const IconPicture& picture, const std::string& tip) override;
  void Modify(const IconPicture& picture, const std::string& tip) override;
  void Delete() override;
  void SetActions(const TrayActions& actions) override;

 private:
  void OnActivated(int reason);
  void FillMenu();

  TrayActions actions_;
  std::optional<int64_t> firstClick_;  ///< tick count of a click that may become a double one
  std::unique_ptr<QMenu> menu_;  ///< outlives the icon, which one of its own items may take away
  std::unique_ptr<QSystemTrayIcon> icon_;
};

/// True when the toolkit can read at least one picture of an icon file's bytes.
bool HoldsPicture(const std::string& bytes);

}  // namespace platform
