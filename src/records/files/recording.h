// Keeps the recording going: a file that can't be opened is tried again, and one that was deleted
// or replaced under its open handle is noticed.
#pragma once

namespace varek {

/// Called once a second: every half minute, looks after one of the two files in turn, so that the
/// tick stays short. Nothing before OpenDatabases has run.
void KeepRecording();

}  // namespace varek
