// The web console: its start and its stop. Whoever starts it also draws its keys.
#pragma once

#include "web/session.h"

namespace varek {

/// Listens on WebPort and serves; a port that can't be opened leaves a line in the dashboard's
/// list and no console.
void StartWebConsole();

/// Closes every connection; without a console nothing.
void StopWebConsole();

}  // namespace varek
