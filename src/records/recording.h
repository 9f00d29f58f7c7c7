// Watches over the recording: that it has stopped, and that it works again, stands once in the
// journal and once in the newest messages. A file that can't be opened is tried again, and one that
// was deleted or replaced under its open handle is noticed.
#pragma once

#include <functional>

namespace varek {

enum class Recording { OpenSamples, WriteSample, OpenEvents, WriteEvent };

/// Runs one step of the recording and reports when it begins to fail or works again; its errors
/// propagate.
void Watch(Recording step, const std::function<void()>& action);

/// Called once a second: every half minute, looks after one of the two files in turn, so that the
/// tick stays short. Nothing before OpenDatabases has run.
void KeepRecording();

}  // namespace varek
