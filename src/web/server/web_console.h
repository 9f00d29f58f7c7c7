// The web console: its start and its stop. Whoever starts it also draws its keys.
#pragma once

#include "web/session/session.h"

namespace varek {

/// Listens on WebPort and serves. A port that can't be opened leaves a line in the dashboard's list
/// and is tried again every minute, for as long as the console is enabled.
void StartWebConsole();

/// True while browsers can reach the console, so that its address may be shown.
bool WebConsoleListens();

/// Closes every connection; without a console nothing.
void StopWebConsole();

}  // namespace varek
