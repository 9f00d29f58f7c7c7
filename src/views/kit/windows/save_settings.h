// Saving the settings on behalf of a window.
#pragma once

#include <string>

class QWidget;

namespace varek {

/// Writes the configuration file. False when it can't be written: the error is listed under
/// `handler` and reported to the person on `window` (nullptr for one that goes now), from the event
/// loop. What was set then holds until the program ends.
bool SaveSettings(const std::string& handler, QWidget* window);

}  // namespace varek
