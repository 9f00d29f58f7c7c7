// What a full day costs in the data history: a query that finds all of it or a part, scrolling
// through the result, and its export, with the window and its progress panel. With DISPLAY set the
// window is a real one.

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "core/data_center.h"
#include "platform/system/paths.h"
#include "platform/text/text.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "platform/time/timers.h"
#include "platform/toolkit/application.h"
#include "records/files/databases.h"
#include "texts/language.h"
#include "views/history/data_history.h"
#include "views/history/save_dialog.h"
#include "views/kit/controls/picture_button.h"

namespace {

namespace fs = std::filesystem;

constexpr int kDaySeconds = 86400;

std::string TimeText(int second) {
  return platform::ZeroPadded(second / 3600, 2) + ":" + platform::ZeroPadded(second / 60 % 60, 2) +
         ":" + platform::ZeroPadded(second % 60, 2);
}

void FillToday() {
  varek::Records.data->BeginTransaction();
  platform::Recordset& rows = *varek::Records.samples;
  for (int second = 0; second < kDaySeconds; ++second) {
    rows.AddNew();
    rows.Set(0, TimeText(second));
    for (const int field : {1, 2, 4, 6}) rows.Set(field, 200 + second % 300 / 10.0);
    for (const int field : {3, 5}) rows.Set(field, int64_t{second % 100});
    rows.Update();
  }
  varek::Records.data->CommitTransaction();
}

/// A copy of the program folder in which today is full.
class FullDay {
 public:
  FullDay() {
    char pattern[] = "/tmp/varek-bench-XXXXXX";
    path_ = mkdtemp(pattern);
    fs::copy(fs::path(PROGRAM_FOLDER) / "database", path_ / "database");
    fs::create_directory_symlink(fs::path(PROGRAM_FOLDER) / "image", path_ / "image");
    platform::SetProgramFolder(path_.string());
    varek::Loadlanguage(0);
    varek::OpenDatabases();
    FillToday();
    varek::DataCenter.HasLoad = varek::kSet;
    varek::DataCenter.HasTemperature = varek::kSet;
    varek::ReplaceSaveDialog(
        [this](const varek::SaveQuestion&) { return (path_ / "day.csv").string(); });
    varek::ShowDataHistory();
    platform::DoEvents();
  }
  ~FullDay() {
    varek::DataHistory().Unload();
    varek::CloseDatabases();
    fs::remove_all(path_);
  }

 private:
  fs::path path_;
};

varek::Form2& Form() { return varek::DataHistory().Get(); }

/// The button that bears `words`.
template <typename Button>
Button& Bearing(const QString& words) {
  for (QWidget* each : Form().findChildren<QWidget*>()) {
    auto* button = dynamic_cast<Button*>(each);
    if (button && (each->accessibleName() == words || each->property("text").toString() == words))
      return *button;
  }
  throw std::runtime_error("no button " + words.toStdString());
}

void Export() {
  auto& button = Bearing<varek::PictureButton>(QStringLiteral("Export"));
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent key(type, Qt::Key_Space, {});
    QApplication::sendEvent(&button, &key);
  }
  // The export runs inside one of these rounds.
  for (int round = 0; round < 5; ++round) platform::DoEvents();
}

void Query() { Bearing<QPushButton>(QStringLiteral("Query")).click(); }

void QueryTheDay(benchmark::State& state) {
  for (auto _ : state) Query();
}
BENCHMARK(QueryTheDay)->Unit(benchmark::kMillisecond);

void QueryAPart(benchmark::State& state) {
  const auto limits = Form().findChildren<QLineEdit*>();
  limits[0]->setText(QStringLiteral("220"));
  limits[1]->setText(QStringLiteral("225,5"));
  for (auto _ : state) Query();
  Bearing<QPushButton>(QStringLiteral("Clear")).click();
}
BENCHMARK(QueryAPart)->Unit(benchmark::kMillisecond);

/// From one end of the day to the other and back: a page at a place far from the last one.
void ScrollTheDay(benchmark::State& state) {
  Query();
  QTableView& grid = *Form().findChild<QTableView*>();
  for (auto _ : state) {
    grid.scrollToBottom();
    grid.grab();
    grid.scrollToTop();
    grid.grab();
  }
}
BENCHMARK(ScrollTheDay)->Unit(benchmark::kMillisecond);

/// `longestMs` is the longest time between two ticks of a timer of 10 ms.
void ExportTheDay(benchmark::State& state) {
  Query();
  int64_t last = 0, longest = 0;
  platform::Timer beat("bench", [&] {
    const int64_t now = platform::TickCount();
    longest = std::max(longest, now - last);
    last = now;
  });
  for (auto _ : state) {
    last = platform::TickCount();
    beat.SetInterval(10);
    Export();
    beat.SetInterval(0);
  }
  state.counters["longestMs"] = static_cast<double>(longest);
}
BENCHMARK(ExportTheDay)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  platform::Application application(argc, argv);
  benchmark::Initialize(&argc, argv);
  const FullDay day;
  benchmark::RunSpecifiedBenchmarks();
}
