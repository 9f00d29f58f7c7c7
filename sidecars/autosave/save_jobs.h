// What is to be run before a shutdown: the executable files of the folder autosave.d beside the
// program. The monitor may run as a service with all rights, so nothing is run that anybody but the
// running user and root could have put there or changed.
#pragma once

#include <string>
#include <vector>

namespace sidecar {

struct SaveJobs {
  std::vector<std::string> names;     ///< of the files to run, in the order of their bytes
  std::vector<std::string> refusals;  ///< one line each: what is not run, and why
};

/// The folder, which need not exist.
std::string SaveFolder();

/// Files that are not executable, hidden files, backups ("~" at the end, ".dpkg-" inside) and
/// folders are passed over; links and what others could have written are refused.
SaveJobs FindSaveJobs();

}  // namespace sidecar
