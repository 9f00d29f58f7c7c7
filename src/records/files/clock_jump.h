// Tells a day that the clock has jumped to from one that came by itself. A clock that is wrong for
// a few seconds must not cost the records of weeks.
#pragma once

#include <cstdint>
#include <optional>

namespace varek {

class ClockJump final {
 public:
  /// Takes the clock as right, as every start does.
  void Trust();

  /// Compares the clock with the tick count since the last look. One that has moved on by over an
  /// hour more is not settled until it has stayed so for ten minutes. One that was set back is
  /// settled at once.
  void Look();

  bool IsSettled() const { return !since_; }

 private:
  int64_t settledLead_ = 0;  ///< milliseconds by which the clock is ahead of the tick count
  int64_t jumpedLead_ = 0;
  std::optional<int64_t> since_;  ///< tick count of the jump that has not settled
};

}  // namespace varek
