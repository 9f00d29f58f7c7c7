// The web console: its start, its stop and the keys of its sessions.
#pragma once

#include <string>

namespace varek {

/// Listens on WebPort and serves; a port that can't be opened leaves a line in the dashboard's
/// list and no console.
void StartWebConsole();

void StopWebConsole();

/// A fresh random key for a login or a control page.
std::string NewKey();

}  // namespace varek
