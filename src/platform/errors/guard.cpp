#include "platform/errors/guard.h"

#include <set>
#include <utility>

#include "platform/errors/runtime_error.h"

namespace platform {

namespace {
struct Sinks {
  ErrorSink error;
  RecoverySink recovered;
  std::set<std::string> failing;  ///< the handlers whose last run was ended by an error
};

Sinks& TheSinks() {
  static Sinks sinks;
  return sinks;
}

void NoteEnd(const std::string& place) {
  Sinks& sinks = TheSinks();
  if (sinks.failing.empty() || sinks.failing.erase(place) == 0) return;
  if (sinks.recovered) sinks.recovered(place);
}
}  // namespace

void SetErrorSink(ErrorSink sink, RecoverySink recovered) {
  TheSinks() = {std::move(sink), std::move(recovered), {}};
}

void ReportError(const std::string& place, const std::exception& error) {
  TheSinks().failing.insert(place);
  if (!TheSinks().error) return;
  const auto* known = dynamic_cast<const RuntimeError*>(&error);
  TheSinks().error(place, known ? known->Number() : errors::kInternal, error.what());
}

bool Guarded(const std::string& place, const std::function<void()>& handler) {
  try {
    handler();
    NoteEnd(place);
    return true;
  } catch (const std::exception& error) {
    ReportError(place, error);
    return false;
  }
}

}  // namespace platform
