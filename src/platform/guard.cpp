#include "platform/guard.h"

#include <utility>

#include "platform/runtime_error.h"

namespace platform {

namespace {
ErrorSink& Sink() {
  static ErrorSink sink;
  return sink;
}
}  // namespace

void SetErrorSink(ErrorSink sink) { Sink() = std::move(sink); }

void ReportError(const std::string& place, const std::exception& error) {
  if (!Sink()) return;
  const auto* known = dynamic_cast<const RuntimeError*>(&error);
  Sink()(place, known ? known->Number() : errors::kInternal, error.what());
}

bool Guarded(const std::string& place, const std::function<void()>& handler) {
  try {
    handler();
    return true;
  } catch (const std::exception& error) {
    ReportError(place, error);
    return false;
  }
}

}  // namespace platform
