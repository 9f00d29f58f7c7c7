// The command line of the simulator.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/unit_description.h"

namespace simulator {

struct Options {
  UnitDescription unit;
  std::string link;     ///< where to link the pseudo-terminal; empty for nowhere
  std::string control;  ///< path of the control socket; empty for none
  std::string log;      ///< file of the command log, "-" for standard output; empty for none
  double speed = 1;     ///< by how much the unit's time runs faster than the real one
  bool help = false;
};

/// A command line that can't be obeyed; the text says why.
struct OptionError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Reads the arguments behind the program's name, each "--name value" or "--name=value". Throws
/// OptionError.
Options ParseOptions(const std::vector<std::string>& arguments);

/// One line per option, for --help.
std::string OptionHelp();

}  // namespace simulator
