// Remote control: the commands that a browser sends to test the unit, switch its beeper, and shut
// down the computer and the unit. Only what cuts power needs the control password.
#pragma once

#include <string>

namespace varek {

/// Carries out `command`, what stands behind "T1=" in the request: its first letter chooses. A
/// refusal is silent. Throws RuntimeError 6 for a restart whose numbers do not fit.
void AnyControl(const std::string& command);

}  // namespace varek
