#include "records/files/recording_watch.h"

#include <string>

#include "core/debug_lines.h"
#include "core/journal.h"
#include "platform/errors/guard.h"

namespace varek {

namespace {

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

void TellReplaced(Recording step) {
  TellStopped(step, "the file was replaced by another");
  TellWorks(step);
}

}  // namespace varek
