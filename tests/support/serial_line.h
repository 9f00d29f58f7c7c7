// The unit's end of a serial line: a pseudo-terminal that stands under a link's name for as long as
// the object lives.
#pragma once

#include <functional>
#include <string>

namespace varek::test {

class PseudoTerminal final {
 public:
  explicit PseudoTerminal(std::string link);
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  /// How many of the bytes the line has taken.
  size_t Send(const std::string& bytes) const;
  /// What has come from the monitor, after waiting up to `milliseconds` for any of it.
  std::string Receive(int milliseconds = 0) const;

 private:
  std::string link_;
  int fd_;
};

/// Makes the toolkit's application, which serves all tests of a program. Ports and windows need it.
void StartToolkit();

/// Lets events be handled until `condition` holds; false when it does not within 20 seconds of the
/// real clock.
bool PumpUntil(const std::function<bool()>& condition);

}  // namespace varek::test
