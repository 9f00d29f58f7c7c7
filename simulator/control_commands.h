// The words by which a person or a test drives the simulator, whichever way they come in.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "simulator/line_faults.h"
#include "simulator/ups_model.h"

namespace simulator {

class ControlCommands final {
 public:
  /// `quit` is called by the command of that name. Everything that is passed must outlive this.
  ControlCommands(UpsModel& model, LineFaults& faults, std::function<void()> quit);

  /// Obeys one line and gives the answer, without a line end: "ok", the unit's state as JSON, or
  /// "error: " and what is wrong.
  std::string Execute(std::string_view line);

  /// One line per command, for --help.
  static std::string Help();

 private:
  UpsModel& model_;
  LineFaults& faults_;
  std::function<void()> quit_;
};

}  // namespace simulator
