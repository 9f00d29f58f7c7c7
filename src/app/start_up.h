// What a start is to become: the monitor, a message to a running copy, or a job for the service
// manager. It depends on the kind of operating system and on one argument.
#pragma once

#include <string>

namespace varek {

/// What the start goes on with after its command line has been looked at.
enum class StartUp { GoOn, End, Refused };

/// GoOn with the rights to use the program folder. Without them a start beside a running copy ends
/// like any later one, and any other is Refused, with a message to the person.
StartUp CheckRights(const std::string& argument);

/// Sets OSKind and acts on the whole command line behind the program's name, by the table of
/// `osKind` (0 to 3). Arguments are compared exactly; any other text is the default. Refused, with
/// a message, when the account lacks the rights for what the argument asks.
StartUp HandleCommandLine(const std::string& argument, int osKind);

/// What a start that failed comes to: beside a running copy it ends like any later one. So an
/// account that may not read the settings of a service still sees that it runs.
StartUp HandleFailedStart(const std::string& argument);

/// True when another copy with the same program folder is running.
bool AnotherInstanceRuns();

/// Asks the running copy to show its dashboard. What it answers goes to standard output; quiet when
/// it does not.
void SendShow();

/// Writes the entry that starts the program with `arguments` when a person logs in.
void SetStartProgram(const std::string& name, const std::string& arguments, bool& ok);
/// The same for a start before anybody logs in, on systems that offer one.
void SetStartProgram98(const std::string& name, const std::string& arguments, bool& ok);

// What the service manager delivers. Polling goes on through a pause.
void NTService_Continue(bool& success);
void NTService_Pause(bool& success);

/// Logs an error of the service: "[", its number, "] ", its description.
void LogServiceError(int number, const std::string& description);

}  // namespace varek
