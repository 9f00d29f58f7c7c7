// The system's service manager and its autostart entries. All paths lie below VAREK_ROOT, so that
// a test can give the program a system of its own.
#pragma once

#include <string>

namespace platform {

/// 2 on a host run by systemd, 0 on any other.
int OperatingSystemKind();

/// Enables the unit varekservice.service and lets the manager read it: the unit of the Debian
/// package where that one starts this very program folder, else one that is written for it. Throws
/// RuntimeError 75.
void InstallService();

/// Removes what InstallService has made, never the package's unit; nothing happens when there is
/// nothing. Throws RuntimeError 75.
void UninstallService();

/// False when the manager would refuse this account's requests.
bool MayAskManager();

/// Ask the manager to start or to stop the service; nobody waits for it.
void StartService();
void StopService();

/// Hands the process to the manager, which then waits for the end of its start. Throws RuntimeError
/// 1063 when the process was not started by the unit.
void StartServiceControl();

/// True once StartServiceControl has succeeded.
bool RunsAsService();

/// Tells the manager `status`, one line that everybody can read there; the first call also tells
/// that the start is done. Nothing happens for a line that it knows, or in a process that is no
/// service.
void ReportServiceStatus(const std::string& status);

/// The kinds of a service's log entries.
enum class LogType { Error = 1, Information = 4 };

/// Leaves an entry with its type and number in the system journal, or on standard error where there
/// is no journal.
void LogServiceEntry(LogType type, int number, const std::string& text);

/// Writes one line into the system's journal, as urgent as an alarm; on standard error where there
/// is no journal.
void LogAlarm(const std::string& text);

/// The two places from which the system starts programs by itself.
enum class Autostart { Run, RunServices };

/// Writes the autostart entry `name` with `arguments` (may be empty) behind the quoted path of the
/// program; false when it can't be written.
bool SetAutostart(Autostart place, const std::string& name, const std::string& arguments);

}  // namespace platform
