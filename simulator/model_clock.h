// Moves a unit by the time that goes by.
#pragma once

#include <chrono>

#include "simulator/ups_model.h"

namespace simulator {

class ModelClock final {
 public:
  /// `speed` seconds of the unit's time for each real one. The model must outlive the clock.
  ModelClock(UpsModel& model, double speed) : model_(model), speed_(speed) {}

  /// Brings the unit to the present moment.
  void CatchUp();

 private:
  using Clock = std::chrono::steady_clock;

  UpsModel& model_;
  double speed_;
  Clock::time_point start_ = Clock::now();
  std::chrono::milliseconds moved_{0};  ///< of the unit's time, since the start
};

}  // namespace simulator
