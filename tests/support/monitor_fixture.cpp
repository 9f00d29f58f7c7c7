#include "support/monitor_fixture.h"
#include "scheduler/schedule_model.h"

#include <stdlib.h>

#include <filesystem>

#include "core/data_center.h"
#include "core/error_list.h"
#include "core/forms.h"
#include "core/journal.h"
#include "core/link_record.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/ports/hid.h"
#include "platform/storage/database.h"
#include "platform/system/paths.h"
#include "platform/system/process.h"
#include "platform/toolkit/application.h"
#include "records/files/databases.h"
#include "records/shutdown/countdown_view.h"
#include "support/serial_line.h"
#include "texts/language.h"

namespace varek::test {

namespace fs = std::filesystem;

namespace {

std::string FileName(const std::string& program) {
  return program.substr(program.find_last_of("\\/") + 1);
}

/// A machine on which nothing is plugged in, whatever the real one has.
class NoHid final : public platform::HidDriver {
 public:
  std::vector<platform::HidDeviceInfo> List() override { return {}; }
  std::unique_ptr<platform::HidDevice> Open(const std::string&) override { return nullptr; }
};

class WrittenCountdown final : public CountdownView {
 public:
  WrittenCountdown(ShownCountdown& shown, std::function<void()> cancel) : shown_(shown) {
    shown_ = {"", std::move(cancel)};
  }
  void Show() override {}
  void SetCaption(const std::string&) override {}
  void ApplyLanguage(size_t) override {}
  void SetTime(const std::string& text) override { shown_.time = text; }

 private:
  ShownCountdown& shown_;
};

void ResetRooms() {
  for (int form = 1; form <= 17; ++form) UnloadForm(form);
  CloseDatabases();
  DataCenter = DataCenterRecord();
  Link = LinkRecord();
  LoadedRunDate = {};
  LangText = {};
  language(0);
  Form13::Clear();
  ForgetFaults();
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (fs::temp_directory_path() / "varek-test-XXXXXX").string();
  path_ = mkdtemp(pattern.data());
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  fs::remove_all(path_, error);
}

void InstallDatabases(const std::string& folder) {
  fs::remove_all(folder + "/database");
  fs::copy(INITIAL_FILES, folder + "/database");
}

void InstallPictures(const std::string& folder) {
  fs::create_directory_symlink(INITIAL_FILES "/image", folder + "/image");
}

MonitorTest::MonitorTest() {
  StartToolkit();
  InstallDatabases(Folder());
  platform::SetProgramFolder(Folder());
  ResetRooms();
  static NoHid noHid;
  platform::ReplaceHidDriver(&noHid);
  platform::SetErrorSink(
      [](const std::string& place, int number, const std::string& description) {
        Form13::AddError(place, number);
        TellEscaped(place, number, description);
      },
      TellOver);
  platform::ReplaceMessageBox(
      [this](const std::string& text, const std::string&) { messages.push_back(text); });
  SetCountdownViewMaker([this](CountdownPlace place, std::function<void()> cancel) {
    return std::make_unique<WrittenCountdown>(countdowns.at(static_cast<size_t>(place)),
                                              std::move(cancel));
  });
  platform::ReplaceEndProcess([](int status) { throw ProcessEnded{status}; });
  platform::ReplaceProgramStarter(
      [this](const std::string& program, const std::string& rest, platform::WindowStyle) {
        const std::string name = FileName(program);
        if (programsMissing || name == missingProgram) {
          throw platform::RuntimeError(53, "missing");
        }
        started.push_back({name, rest});
      });
}

MonitorTest::~MonitorTest() {
  ResetRooms();
  SetCountdownViewMaker(nullptr);
  platform::SetErrorSink(nullptr);
  platform::ReplaceMessageBox(nullptr);
  platform::ReplaceEndProcess(nullptr);
  platform::ReplaceProgramStarter(nullptr);
}

std::vector<StartedProgram> MonitorTest::Started(const std::string& name) const {
  std::vector<StartedProgram> found;
  for (const StartedProgram& program : started) {
    if (program.name == name) found.push_back(program);
  }
  return found;
}

std::vector<int> MonitorTest::EventRows() const {
  platform::Database database(Folder() + "/database/Event.mdb");
  const auto rows = database.OpenRecordset(kEventTable);
  std::vector<int> types;
  for (; !rows->Eof(); rows->MoveNext()) {
    types.push_back(static_cast<int>(platform::ValueNumber(rows->Get("type"))));
  }
  return types;
}

Journal::Journal() { testing::internal::CaptureStderr(); }

Journal::~Journal() {
  if (!taken_) testing::internal::GetCapturedStderr();
}

std::string Journal::Take() {
  taken_ = true;
  return testing::internal::GetCapturedStderr();
}

}  // namespace varek::test
