// What the monitor does every second: parsing a status line and storing a sample. The databases
// lie in memory (/dev/shm), so that the disk's own time is left out.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>

#include "core/data_center.h"
#include "link/protocol.h"
#include "platform/system/paths.h"
#include "records/events.h"
#include "records/files/databases.h"

namespace {

namespace fs = std::filesystem;

const std::string kStatus = "(208.4 140.0 208.4 034 59.9 2.05 35.0 00001000\r";

void ParseStatusLine(benchmark::State& state) {
  for (auto _ : state) varek::ParseStatus(kStatus);
}
BENCHMARK(ParseStatusLine);

/// A program folder in memory with the initial databases.
class MemoryFolder {
 public:
  MemoryFolder() {
    char pattern[] = "/dev/shm/varek-bench-XXXXXX";
    path_ = mkdtemp(pattern);
    fs::copy(INITIAL_FILES, path_ / "database");
    platform::SetProgramFolder(path_.string());
    varek::OpenDatabases();
  }
  ~MemoryFolder() {
    varek::CloseDatabases();
    fs::remove_all(path_);
  }

 private:
  fs::path path_;
};

void AddOneSample(benchmark::State& state) {
  const MemoryFolder folder;
  varek::ParseStatus(kStatus);
  for (auto _ : state) varek::AddSample();
}
BENCHMARK(AddOneSample)->Unit(benchmark::kMicrosecond);

void CheckEventsOfAQuietSecond(benchmark::State& state) {
  const MemoryFolder folder;
  varek::DataCenter.IsConnect = varek::kSet;
  for (auto _ : state) varek::CheckUPSEvents();
}
BENCHMARK(CheckEventsOfAQuietSecond);

/// Opening today's table late in the day, with all its rows.
void OpenAFullDay(benchmark::State& state) {
  const MemoryFolder folder;
  varek::Records.data->BeginTransaction();
  for (int second = 0; second < 86400; ++second) varek::AddSample();
  varek::Records.data->CommitTransaction();
  for (auto _ : state) varek::OpenTodayTable();
}
BENCHMARK(OpenAFullDay)->Unit(benchmark::kMillisecond)->Iterations(20);

}  // namespace

BENCHMARK_MAIN();
