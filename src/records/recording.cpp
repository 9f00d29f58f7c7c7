#include "records/recording.h"

#include <string>

#include "core/journal.h"
#include "platform/errors/guard.h"
#include "platform/time/clock.h"
#include "records/databases.h"
#include "records/events.h"

namespace varek {

namespace {

/// Each file has every other turn.
constexpr int64_t kTurnMilliseconds = 30'000;

struct Words {
  const char* place;
  const char* stopped;
  const char* works;
};

constexpr char kNoSamples[] = "Samples are not recorded: ";
constexpr char kSamples[] = "Samples are recorded again";
constexpr char kNoEvents[] = "Events are not recorded: ";
constexpr char kEvents[] = "Events are recorded again";

/// By Recording.
constexpr Words kWords[] = {
    {places::kOpenSamples, kNoSamples, kSamples},
    {places::kWriteSample, kNoSamples, kSamples},
    {places::kOpenEvents, kNoEvents, kEvents},
    {places::kWriteEvent, kNoEvents, kEvents},
};

const Words& WordsOf(Recording step) { return kWords[static_cast<size_t>(step)]; }

/// A line in the newest messages must never cost the event that is being recorded.
void Show(const std::string& text) {
  platform::IgnoreErrors([&] { AddEventLine(text); });
}

void TellStopped(Recording step, const std::string& reason) {
  const Words& words = WordsOf(step);
  if (TellFault(words.place, reason)) Show(words.stopped + reason);
}

void TellWorks(Recording step) {
  const Words& words = WordsOf(step);
  if (TellOver(words.place)) Show(words.works);
}

/// What was written since the last check is lost with the replaced file.
void TellReplaced(Recording step) {
  TellStopped(step, "the file was replaced by another");
  TellWorks(step);
}

/// One of the two files, as its watch sees it.
struct File {
  std::optional<platform::Database>& handle;
  Recording opening;
  void (*open)();
  void (*close)();
};

void LookAfter(const File& file) {
  const bool gone = file.handle && file.handle->HasMoved();
  if (gone) file.close();
  if (file.handle) return;
  Watch(file.opening, file.open);
  if (gone) TellReplaced(file.opening);
}

}  // namespace

void Watch(Recording step, const std::function<void()>& action) {
  try {
    action();
  } catch (const std::exception& error) {
    TellStopped(step, error.what());
    throw;
  }
  TellWorks(step);
}

void KeepRecording() {
  if (!Records.wanted || platform::TickCount() - Records.lookedAt < kTurnMilliseconds) return;
  Records.lookedAt = platform::TickCount();
  Records.eventTurn = !Records.eventTurn;
  const File samples{Records.data, Recording::OpenSamples, OpenSampleFile, CloseSampleFile};
  const File events{Records.event, Recording::OpenEvents, OpenEventFile, CloseEventFile};
  platform::IgnoreErrors([&] { LookAfter(Records.eventTurn ? events : samples); });
}

}  // namespace varek
