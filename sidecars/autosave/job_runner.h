// Runs one program to its end, or for as long as it may take.
#pragma once

#include <cstdint>
#include <string>

namespace sidecar {

/// Makes the process able to wait for its programs. REQUIRES to be called once, before RunJob.
void PrepareJobs();

/// Runs `path` without arguments, in a process group of its own and with no input, and waits. After
/// `limit` milliseconds its group gets SIGTERM and two seconds later SIGKILL. Returns how it ended,
/// in words for the log; a program that can't be started is reported in the same way.
std::string RunJob(const std::string& path, int64_t limit);

}  // namespace sidecar
