// What the oscilloscope costs: loading a day of 86,400 samples, and a redraw of the whole day with
// all six curves, at the plot's size at the start and on a large screen. The databases lie in
// memory (/dev/shm), so that the disk's own time is left out.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cmath>
#include <filesystem>

#include "core/data_center.h"
#include "platform/system/paths.h"
#include "platform/time/clock.h"
#include "platform/toolkit/application.h"
#include "records/files/databases.h"
#include "views/oscilloscope/curves/scope_chart.h"

namespace {

namespace fs = std::filesystem;

constexpr char kDay[] = "20260309";
constexpr int kSeconds = 86400;

/// A day with noise on every curve, which is the worst for the drawing.
void WriteDay(platform::Database& data) {
  platform::TableDef table{kDay, {{"date", platform::FieldType::Date}}};
  for (const char* name :
       {"Input voltage", "Output voltage", "Load", "Frequency", "Battery", "Temperature"})
    table.fields.push_back({name, platform::FieldType::Single});
  data.AppendTable(table);
  const auto rows = data.OpenRecordset(kDay);
  data.BeginTransaction();
  for (int i = 0; i < kSeconds; ++i) {
    rows->AddNew();
    rows->Set(0, platform::FormatTime({0, 0, 0, i / 3600, i / 60 % 60, i % 60}));
    for (int field = 1; field <= varek::kCurveCount; ++field)
      rows->Set(field, 70.0 * field + 12 * std::sin(i * 0.7 + field) + i % 7);
    rows->Update();
  }
  data.CommitTransaction();
}

/// A program folder in memory with one day of samples; made once.
class MemoryFolder {
 public:
  MemoryFolder() {
    char pattern[] = "/dev/shm/varek-bench-XXXXXX";
    path_ = mkdtemp(pattern);
    fs::copy(INITIAL_FILES, path_ / "database");
    platform::SetProgramFolder(path_.string());
    varek::OpenDatabases();
    WriteDay(*varek::Records.data);
  }
  ~MemoryFolder() {
    varek::CloseDatabases();
    fs::remove_all(path_);
  }

 private:
  fs::path path_;
};

varek::ScopeHours WholeDay() {
  varek::HourLines lines;
  lines.fill(true);
  return varek::ChosenHours(lines);
}

void Load(varek::ScopeData& scope) {
  platform::Database data(platform::ProgramPath(varek::kDataFile));
  platform::Database event(platform::ProgramPath(varek::kEventFile), platform::Access::ReadOnly);
  scope.LoadDayData(data, event, kDay, WholeDay(), [](int) {});
}

void LoadADay(benchmark::State& state) {
  const MemoryFolder folder;
  varek::ScopeData scope;
  for (auto _ : state) Load(scope);
}
BENCHMARK(LoadADay)->Unit(benchmark::kMillisecond);

void DrawADay(benchmark::State& state) {
  const MemoryFolder folder;
  varek::ScopeData scope;
  Load(scope);
  varek::ScopeView view;
  view.Recentre(scope.TotalSeconds());
  view.ShowAll();
  varek::ScopeChart chart(scope, view);
  chart.Resize(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  for (auto _ : state) chart.DrawChart();
}
BENCHMARK(DrawADay)->Args({652, 552})->Args({1560, 1000})->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  platform::Application application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
