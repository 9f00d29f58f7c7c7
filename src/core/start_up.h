// What a start is to become: the monitor, a message to a running copy, or a job for the service
// manager.
#pragma once

namespace varek {

/// Acts on the command line; may end the process.
void HandleCommandLine();

/// True when another copy with the same program folder is running.
bool AnotherInstanceRuns();

/// Asks the running copy to show its dashboard.
void SendShow();

/// True when the process was started by the service manager.
bool RunsAsService();

/// Asks the service manager to stop the service, which is this process.
void StopService();

}  // namespace varek
