#include "records/files/recording.h"

#include "platform/errors/guard.h"
#include "platform/time/clock.h"
#include "records/files/databases.h"
#include "records/files/recording_watch.h"

namespace varek {

namespace {

/// Each file has every other turn.
constexpr int64_t kTurnMilliseconds = 30'000;

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

void KeepRecording() {
  if (!Records.wanted || platform::TickCount() - Records.lookedAt < kTurnMilliseconds) return;
  Records.lookedAt = platform::TickCount();
  Records.eventTurn = !Records.eventTurn;
  const File samples{Records.data, Recording::OpenSamples, OpenSampleFile, CloseSampleFile};
  const File events{Records.event, Recording::OpenEvents, OpenEventFile, CloseEventFile};
  platform::IgnoreErrors([&] { LookAfter(Records.eventTurn ? events : samples); });
}

}  // namespace varek
