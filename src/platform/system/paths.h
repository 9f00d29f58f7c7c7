// The program folder and the names inside it. The system writes its paths with backslashes below
// the program folder; here they become names of the host.
#pragma once

#include <string>

namespace platform {

/// Folder of the running executable, without a separator at its end.
std::string ProgramFolder();

/// Makes another folder the program folder, for tests.
void SetProgramFolder(const std::string& folder);

/// The host's name of `path`, which is written below the program folder as in
/// "\database\Event.mdb". Each component that has no exact match is found without regard to case;
/// one that does not exist is taken as written. Throws RuntimeError 76 for a path that would leave
/// the program folder.
std::string ProgramPath(const std::string& path);

/// ProgramPath of the picture file `name`.
std::string ImagePath(const std::string& name);

/// False when this account lacks the right to write into the program folder or to read its
/// settings.
bool MayUseProgramFolder();

/// True when `path` (a host name) is a regular file, or a link to one.
bool IsFile(const std::string& path);

/// Reads a whole file; throws RuntimeError 53 when it does not exist and 75 when it can't be read.
std::string ReadWholeFile(const std::string& path);

/// Writes a temporary file beside `path` and renames it to that, so that a power cut leaves either
/// the old file or the new one. Owner and rights of the old file stay as far as this account may
/// give them; a file that is new is readable by its owner only. Throws RuntimeError 75, and then
/// leaves no temporary file.
void ReplaceFile(const std::string& path, const std::string& bytes);

/// Removes the temporary file of a ReplaceFile that a power cut or a kill broke off.
void RemoveNeighbour(const std::string& path);

}  // namespace platform
