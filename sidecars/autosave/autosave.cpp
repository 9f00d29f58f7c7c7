// Autosave: started two minutes before the system's shutdown. Runs the executable files of the
// folder autosave.d one after another, each for a limited time, and goes on after a failure.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "autosave/job_runner.h"
#include "autosave/save_jobs.h"
#include "kit/log_file.h"
#include "platform/copies/runtime_folder.h"
#include "platform/system/paths.h"
#include "platform/time/clock.h"

namespace {

// Together with the two seconds that the last one may get to end, they fit into two minutes.
constexpr int kJobSeconds = 30;
constexpr int kTotalSeconds = 100;
constexpr int kLongestSeconds = 3600;
constexpr int64_t kMilliseconds = 1000;

/// A time limit in seconds from the environment; one that makes no sense is logged.
int64_t Limit(const char* name, int usual, const sidecar::LogFile& log) {
  const char* text = std::getenv(name);
  if (!text || !*text) return usual;
  char* end = nullptr;
  const long seconds = std::strtol(text, &end, 10);
  if (!*end && seconds >= 1 && seconds <= kLongestSeconds) return seconds;
  log.Add(std::string(name) + ": not a number from 1 to 3600, " + std::to_string(usual) +
          " is taken");
  return usual;
}

void RunAll(const sidecar::SaveJobs& jobs, const sidecar::LogFile& log) {
  const int64_t limit = Limit("VAREK_AUTOSAVE_JOB", kJobSeconds, log) * kMilliseconds;
  const int64_t total = Limit("VAREK_AUTOSAVE_TOTAL", kTotalSeconds, log) * kMilliseconds;
  const int64_t end = platform::TickCount() + total;
  sidecar::PrepareJobs();
  for (const std::string& name : jobs.names) {
    const int64_t left = end - platform::TickCount();
    if (left <= 0) {
      log.Add(name + ": not run, the time for all is over");
      continue;
    }
    log.Add(name + ": started");
    log.Add(name + ": " +
            sidecar::RunJob(sidecar::SaveFolder() + "/" + name, std::min(limit, left)));
  }
}

}  // namespace

int main() {
  const sidecar::LogFile log(platform::ProgramFolder() + "/autosave.log");
  // A countdown that was cancelled and begun anew must not save twice at a time.
  platform::RuntimeLock lock("-autosave.lock");
  if (lock.Take() == platform::LockTry::Busy) {
    log.Add("another save is still running");
    return 0;
  }
  const sidecar::SaveJobs jobs = sidecar::FindSaveJobs();
  for (const std::string& refusal : jobs.refusals) log.Add(refusal);
  if (jobs.names.empty()) log.Add("nothing to run in autosave.d");
  RunAll(jobs, log);
  return 0;
}
