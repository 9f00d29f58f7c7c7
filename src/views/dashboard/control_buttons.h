// What the six buttons of the dashboard's control tab do.
#pragma once

namespace varek {

/// In the order in which they stand, column by column.
enum ControlButton : int {
  kShortTest,
  kTestUntilBatteryLow,
  kCancelTest,
  kShutDownUnit,
  kShutDownComputer,
  kCancelShutdowns,
  kControlCount
};

/// The release of a button. kShutDownUnit takes two seconds, in which other handlers run.
void PressControl(ControlButton control);

}  // namespace varek
