// The one way into every timer, socket and window handler: an error that escapes ends that
// handler and adds one line to the error list, and the program goes on. IgnoreErrors is for the
// few routines that run to their end whatever fails. Nothing else catches broadly.
#pragma once

#include <exception>
#include <functional>
#include <string>

namespace platform {

/// Where escaped errors go: the handler's name, the error's number, its description.
using ErrorSink =
    std::function<void(const std::string& place, int number, const std::string& description)>;

/// What follows when a handler that has failed comes to its end again: its name.
using RecoverySink = std::function<void(const std::string& place)>;

/// Sets the sinks; the former ones are dropped. Without a sink errors are lost.
void SetErrorSink(ErrorSink sink, RecoverySink recovered = nullptr);

/// Reports one error under `place`; used by Guarded and by handlers with words of their own.
/// An exception that is no RuntimeError counts as an internal error (51).
void ReportError(const std::string& place, const std::exception& error);

/// Runs `handler`; true when it came to its end, false when an error ended it (and was reported).
bool Guarded(const std::string& place, const std::function<void()>& handler);

/// Runs one step whose failure must not stop what follows it.
template <typename Step>
void IgnoreErrors(Step&& step) {
  try {
    step();
  } catch (const std::exception&) {
    // The step's loss is accepted by the caller.
  }
}

}  // namespace platform
