// The tray icon, which stands for the program while no window is open: its picture and tip show the
// status code, a double click brings up the dashboard, the right button the menu.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/desktop/tray_icon.h"

namespace varek {

struct TrayRecord {
  int32_t TrayIconHandle = 0;  ///< the icon's id while it exists, else 0
  platform::IconPicture TrayPicture;
  std::string TipText;  ///< the word in front of the tip
};

extern TrayRecord Tray;

/// Changes the icon's picture and tip to those of `stage` (0 to 8); without an icon only the
/// picture, which the icon then comes up with. Throws RuntimeError 53 or 481 for a picture that is
/// missing or unreadable, and 9 for a stage without a text; the icon stays as it was.
void SetStageIcon(int16_t stage);

/// Loads the picture that the icon starts with, which is that of no link: any other stage counts as
/// a change from it. Throws as SetStageIcon does.
void LoadTrayPicture();

/// Tries to make the icon; TrayIconHandle stays 0 when the desktop has no tray. The tip says that
/// there is no link, whatever the stage.
void TrayAdd();

/// Removes the icon, if there is one.
void TrayDelete();

/// Forgets the icon without removing it, after the desktop has taken it away.
void ForgetTrayIcon();

/// Sets what the icon does: `showProgram` by a double click and the menu's first item, `endProgram`
/// by its last. What they use must outlive the icon.
void SetTrayActions(std::function<void()> showProgram, std::function<void()> endProgram);

/// Puts the menu's captions into the present language.
void ApplyTrayLanguage();

}  // namespace varek
