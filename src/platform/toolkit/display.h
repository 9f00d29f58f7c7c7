// Whether there is a display.
#pragma once

namespace platform {

/// True when windows are really seen by a person: message boxes wait only then.
bool HasDisplay();

}  // namespace platform
