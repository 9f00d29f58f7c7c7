// What the six buttons of the dashboard's control tab do.
#pragma once

namespace varek {

/// Numbers of the buttons: 3 short battery test, 4 test until the battery is low, 5 cancel the
/// test, 6 shut down the unit, 7 shut down the computer, 8 cancel the shutdowns.
constexpr int kFirstControl = 3;

/// The release of button `number`. 6 takes two seconds, in which other handlers run.
void PressControl(int number);

}  // namespace varek
