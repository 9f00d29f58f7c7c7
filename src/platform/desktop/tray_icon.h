// The icon in the desktop's notification area: at most one, with a picture, a tip, a double click
// and a menu. A test puts a tray of its own in front of the same seam.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace platform {

/// The bytes of an icon file that the toolkit can read.
struct IconPicture {
  std::string bytes;
};

/// Reads the icon file `path`, a host name. Throws RuntimeError 53 when there is none, 75 when it
/// can't be read and 481 when it holds no picture.
IconPicture LoadIcon(const std::string& path);

struct TrayMenuItem {
  std::string caption;
  std::function<void()> action;
};

/// What a person can do with the icon. Everything that the actions use must outlive the icon.
struct TrayActions {
  std::function<void()> doubleClick;
  std::vector<TrayMenuItem> menu;  ///< pops up by the right button
};

class TrayDriver {
 public:
  virtual ~TrayDriver() = default;
  /// Makes the icon anew, in place of one that may still exist. False while there is no tray.
  virtual bool Add(const IconPicture& picture, const std::string& tip) = 0;
  virtual void Modify(const IconPicture& picture, const std::string& tip) = 0;
  virtual void Delete() = 0;
  /// For the icon that exists and every later one.
  virtual void SetActions(const TrayActions& actions) = 0;
};

/// Shows the icon, in place of one that still exists. False while the desktop has no tray (none at
/// logon, none at all without a display); the caller tries again. Of a tip the first 63 bytes are
/// shown, and never a part of a character.
bool TrayAdd(const IconPicture& picture, const std::string& tip);

/// Changes picture and tip of the icon, if there is one. The tip is cut as for TrayAdd.
void TrayModify(const IconPicture& picture, const std::string& tip);

/// Takes the icon away, if there is one.
void TrayDelete();

/// Sets what the icon does, from now on and for later icons. An action that fails is reported.
void SetTrayActions(const TrayActions& actions);

/// Hands in the desktop's tray and what knows a picture when it sees one; nullptr takes both out
/// again. Without them there is no tray, and any file counts as a picture. The tray must outlive
/// its use.
void SetDesktopTray(TrayDriver* tray, bool (*isPicture)(const std::string& bytes));

/// Puts `driver` in the place of the desktop's tray; nullptr restores. It must outlive its use.
void ReplaceTrayDriver(TrayDriver* driver);

}  // namespace platform
