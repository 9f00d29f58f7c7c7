// The looks of message boxes: the program's colours, a sign, the text as it stands, and one button.
#pragma once

#include <QString>
#include <functional>
#include <string>

class QLabel;

namespace varek {

/// From now on every message box of the process looks so. `buttonText` is asked with each box; an
/// empty one gives "OK".
void DressMessageBoxes(std::function<std::string()> buttonText);

/// A label that shows `text` as it stands, in several lines where it is long.
QLabel* MakePlainLabel(const QString& text);

}  // namespace varek
