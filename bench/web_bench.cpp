// What the generated parts of the web console cost: both charts of the status page over the table
// of a full day, a page of markers around them, an hour as a table, and month pages with 2,000
// entries. The files lie in memory (/dev/shm), so that the disk's own time is left out.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/data_center.h"
#include "platform/storage/database.h"
#include "platform/system/paths.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "platform/toolkit/application.h"
#include "records/files/databases.h"
#include "texts/language.h"
#include "web/pages/chart_pages.h"
#include "web/pages/data_page.h"
#include "web/pages/event_pages.h"
#include "web/pages/page_files.h"
#include "web/pages/schedule_pages.h"
#include "web/server/template_engine.h"

namespace {

namespace fs = std::filesystem;

constexpr int kDaySeconds = 86400;
constexpr int kEntries = 2000;

/// One second before midnight, so that the hour of the charts is the last of the table.
class LateEvening final : public platform::Clock {
 public:
  LateEvening() { platform::ReplaceClock(this); }
  ~LateEvening() override { platform::ReplaceClock(nullptr); }
  platform::DateTime Now() override { return {2026, 3, 10, 23, 59, 59}; }
  int64_t TickCount() override { return 0; }
  void Wait(int) override {}
};

/// A program folder in memory, with a full day of samples and full months.
class MemoryFolder {
 public:
  MemoryFolder() {
    char pattern[] = "/dev/shm/varek-bench-XXXXXX";
    path_ = mkdtemp(pattern);
    fs::copy(INITIAL_FILES, path_ / "database");
    fs::create_directory(path_ / "httpEnglish");
    platform::SetProgramFolder(path_.string());
    varek::SetLanguageIndex(0);
    varek::Loadlanguage(0);
    varek::DataCenter.HasTemperature = varek::kSet;
    varek::DataCenter.HasLoad = varek::kSet;
    varek::OpenDatabases();
    FillDay();
    FillMonths();
    WriteSources();
  }
  ~MemoryFolder() {
    varek::CloseDatabases();
    fs::remove_all(path_);
  }

  std::string Page(const std::string& name) const { return path_ / "httpEnglish" / name; }

 private:
  static std::string TimeText(int second) {
    return platform::ZeroPadded(second / 3600, 2) + ":" +
           platform::ZeroPadded(second / 60 % 60, 2) + ":" + platform::ZeroPadded(second % 60, 2);
  }

  static void FillDay() {
    auto& samples = *varek::Records.samples;
    varek::Records.data->BeginTransaction();
    for (int second = 0; second < kDaySeconds; ++second) {
      samples.AddNew();
      samples.Set(0, TimeText(second));
      for (int column : {1, 2}) samples.Set(column, 220.0 + second % 7);
      samples.Set(3, int64_t{30 + second % 5});
      samples.Set(4, 49.5 + second % 10 / 10.0);
      samples.Set(5, int64_t{60 + second % 30});
      samples.Set(6, 30.0 + second % 20);
      samples.Update();
    }
    varek::Records.data->CommitTransaction();
  }

  static void FillMonths() {
    varek::Records.event->BeginTransaction();
    const auto schedule = varek::Records.event->OpenRecordset(varek::kScheduleTable);
    const auto events = varek::Records.event->OpenRecordset(varek::kEventTable);
    for (int i = 0; i < kEntries; ++i) {
      const std::string date = "2026/3/" + std::to_string(i % 31 + 1);
      events->AddNew();
      events->Set(0, date + " " + TimeText(i));
      events->Set(1, int64_t{i % 12 + 1});
      events->Update();
      const std::string row[] = {std::to_string(i + 1), date, "12:00", "T", "Null", ""};
      schedule->AddNew();
      for (int field = 0; field < 6; ++field) schedule->Set(field, row[field]);
      schedule->Update();
    }
    varek::Records.event->CommitTransaction();
  }

  void WriteSources() const {
    const std::string date = "<%GETEventYear%><%GETEventMonth%>";
    std::ofstream(Page("srcMundata.htm")) << "<%GETMUNDATA%>";
    std::ofstream(Page("srcscheduleshow.htm")) << date << "<%ScheduleTable%>";
    std::ofstream(Page("srceventselect.htm")) << date << "<%EventTable%>";
    std::ofstream(Page("status.htm")) << "<%DRAWBETLINE%><%GETTIME%><%Do5EVENT%><%Event1%>";
  }

  fs::path path_;
};

const MemoryFolder& Folder() {
  static const LateEvening clock;
  static const MemoryFolder folder;
  return folder;
}

void StatusPageWithBothCharts(benchmark::State& state) {
  const std::string page = Folder().Page("status.htm");
  varek::PageValues values;
  for (auto _ : state) varek::ReadPage(page, values);
}
BENCHMARK(StatusPageWithBothCharts)->Unit(benchmark::kMillisecond);

void ChartOfAnHour(benchmark::State& state) {
  Folder();
  varek::PageValues values;
  for (auto _ : state) varek::ChartRequest("2026%2F3%2F10+20+63", values);
}
BENCHMARK(ChartOfAnHour)->Unit(benchmark::kMillisecond);

void TableOfAnHour(benchmark::State& state) {
  Folder();
  for (auto _ : state) varek::DataRequest("2026%2F3%2F10+20");
}
BENCHMARK(TableOfAnHour)->Unit(benchmark::kMillisecond);

void MonthOfTheSchedule(benchmark::State& state) {
  Folder();
  for (auto _ : state) varek::ScheduleMonthPage(2026, 3);
}
BENCHMARK(MonthOfTheSchedule)->Unit(benchmark::kMillisecond);

void MonthOfEvents(benchmark::State& state) {
  Folder();
  for (auto _ : state) varek::EventMonthPage(2026, 3);
}
BENCHMARK(MonthOfEvents)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
