// What the dashboard costs: a frame at each size, opening it, and the memory that opening and
// closing it leaves behind. With DISPLAY set the windows are real ones.

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

#include "core/data_center.h"
#include "platform/system/paths.h"
#include "platform/time/events.h"
#include "platform/toolkit/application.h"
#include "texts/language.h"
#include "views/dashboard/dashboard.h"

namespace {

void Prepare() {
  platform::SetProgramFolder(PROGRAM_FOLDER);
  varek::Loadlanguage(1);
  varek::DataCenter.IsConnect = varek::kSet;
  varek::DataCenter.identity.UPSVersion = "V1.0";
  varek::DataCenter.readings.InputVoltage = 228.4F;
  varek::DataCenter.readings.Frequency = 49.9F;
  varek::DataCenter.readings.BatteryVoltage = 2.2F;
}

void Frame(benchmark::State& state) {
  Prepare();
  varek::InstrumentPanel panel;
  const int width = static_cast<int>(state.range(0));
  panel.Resize(width, width * 664 / 764, width * 430 / 764);
  for (auto _ : state) panel.Frame();
}
BENCHMARK(Frame)->Arg(700)->Arg(800)->Arg(1100)->Arg(1900)->Unit(benchmark::kMicrosecond);

double ResidentMegabytes() {
  long pages = 0, resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident) * 4096 / 1e6;
}

/// The first openings fill the toolkit's caches.
constexpr int kWarmUp = 500;

void OpenAndCloseDashboard(benchmark::State& state) {
  Prepare();
  double before = 0;
  int opened = 0;
  for (auto _ : state) {
    varek::ShowDashboard();
    platform::DoEvents();
    varek::Dashboard().Unload();
    if (++opened == kWarmUp) before = ResidentMegabytes();
  }
  state.counters["grownMB"] = ResidentMegabytes() - before;
}
BENCHMARK(OpenAndCloseDashboard)->Iterations(4000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
