// The tray icon: shows the status code while no window is open.
#pragma once

#include <cstdint>

namespace varek {

/// Changes the icon's picture and tip to those of `stage` (0 to 8).
void SetStageIcon(int16_t stage);

/// Loads the picture that the icon starts with.
void LoadTrayPicture();

/// Tries to make the icon; true once it exists.
bool TrayAdd();

/// Removes the icon, if there is one.
void TrayDelete();

/// Forgets the icon without removing it, after the desktop has taken it away.
void ForgetTrayIcon();

/// Shows the dashboard, or raises it.
void ShowDashboard();

}  // namespace varek
