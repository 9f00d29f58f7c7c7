// The sets of pictures. Each procedure writes its set into `folder`, which must exist, and throws
// std::runtime_error when a file can't be written.
#pragma once

#include <filesystem>

namespace varek::pictures {

/// All of the dashboard's instruments that does not move, each panel in every size class.
void MakeDialPanels(const std::filesystem::path& folder);

/// The filled battery and load bars, of which the dashboard shows the lower part.
void MakeLevelBars(const std::filesystem::path& folder);

/// Lamps, menu, event and schedule pictures.
void MakeStatePictures(const std::filesystem::path& folder);

/// Ico0.ico to Ico8.ico, the tray's icons by the stage of the UPS, and the windows' varek.png.
void MakeIcons(const std::filesystem::path& folder);

/// What every window is made of: background, frame, buttons and progress bar.
void MakeWindowParts(const std::filesystem::path& folder);

/// What the web pages show, of the same set in every language, and empty charts for a start.
void MakeWebPictures(const std::filesystem::path& folder);

}  // namespace varek::pictures
