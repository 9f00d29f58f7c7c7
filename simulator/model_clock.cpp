#include "simulator/model_clock.h"

namespace simulator {

void ModelClock::CatchUp() {
  const std::chrono::duration<double, std::milli> elapsed = Clock::now() - start_;
  // Counted from the start, so that the fractions of milliseconds do not get lost on the way.
  const auto target = std::chrono::duration_cast<std::chrono::milliseconds>(elapsed * speed_);
  model_.Advance(target - moved_);
  moved_ = target;
}

}  // namespace simulator
