// That the recording has stopped, and that it works again, stands once in the journal and once in
// the newest messages.
#pragma once

#include <functional>

namespace varek {

enum class Recording { OpenSamples, WriteSample, OpenEvents, WriteEvent };

/// Runs one step of the recording and reports when it begins to fail or works again; its errors
/// propagate.
void Watch(Recording step, const std::function<void()>& action);

/// Reports that the file behind `step` was replaced: what was written since the last check is lost
/// with it.
void TellReplaced(Recording step);

}  // namespace varek
