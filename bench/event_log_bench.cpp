// What the fullest month costs the event log: 2,000 events on each of 31 days. The database lies in
// memory (/dev/shm), so that the disk's own time is left out.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

#include "platform/storage/database.h"
#include "platform/system/paths.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "platform/toolkit/application.h"
#include "records/files/databases.h"
#include "texts/language.h"
#include "views/event_log/event_log.h"
#include "views/event_log/event_month.h"

namespace {

namespace fs = std::filesystem;

/// A program folder in memory in which January 2010 is full.
class FullMonth {
 public:
  FullMonth() {
    char pattern[] = "/dev/shm/varek-bench-XXXXXX";
    path_ = mkdtemp(pattern);
    fs::copy(INITIAL_FILES, path_ / "database");
    fs::create_directory_symlink(PROGRAM_FOLDER "/image", path_ / "image");
    platform::SetProgramFolder(path_.string());
    varek::Loadlanguage(1);
    for (int day = 1; day <= 31; ++day) WriteDay(day);
  }
  ~FullMonth() { fs::remove_all(path_); }

 private:
  static void WriteDay(int day) {
    platform::Database database(platform::ProgramPath(varek::kEventFile));
    const auto rows = database.OpenRecordset("Select * From [allevent] Where [type] > 12");
    database.BeginTransaction();
    for (size_t i = 0; i < varek::kMostEventsOfADay; ++i) {
      const int second = static_cast<int>(i);
      rows->AddNew();
      rows->Set(
          0, platform::FormatStored({2010, 1, day, second / 3600, second / 60 % 60, second % 60}));
      rows->Set(1, int64_t{second % varek::kEventCount + 1});
      rows->Update();
    }
    database.CommitTransaction();
  }

  fs::path path_;
};

/// January 2010, whenever the program looks.
class January final : public platform::Clock {
 public:
  January() { platform::ReplaceClock(this); }
  ~January() override { platform::ReplaceClock(nullptr); }
  platform::DateTime Now() override { return {2010, 1, 31, 12, 0, 0}; }
  int64_t TickCount() override { return ++ticks_; }
  void Wait(int milliseconds) override { ticks_ += milliseconds; }

 private:
  int64_t ticks_ = 0;
};

void LoadAFullMonth(benchmark::State& state) {
  const FullMonth folder;
  varek::EventMonth month;
  for (auto _ : state) month.reloadmon(2010, 1);
  state.counters["events"] = static_cast<double>(31 * month.CountOf(31));
}
BENCHMARK(LoadAFullMonth)->Unit(benchmark::kMillisecond);

/// From nothing to a painted window.
void OpenOnAFullMonth(benchmark::State& state) {
  const FullMonth folder;
  const January clock;
  for (auto _ : state) {
    varek::ShowEventLog();
    platform::DoEvents();
    varek::EventLog().Unload();
  }
}
BENCHMARK(OpenOnAFullMonth)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
