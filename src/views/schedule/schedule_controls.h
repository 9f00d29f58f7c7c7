// What the schedule calendar and its panels are made of.
#pragma once

#include <QString>
#include <functional>

class QPushButton;
class QWidget;

namespace varek {

/// A text by its number in the language table.
QString ScheduleText(size_t number);

/// A button whose object name is `name`; `act` runs guarded under that name.
QPushButton* MakeScheduleButton(QWidget* parent, const char* name, std::function<void()> act);

}  // namespace varek
