#include "simulator/options.h"

#include <algorithm>
#include <cstdio>
#include <optional>

#include "simulator/numbers.h"

namespace simulator {

namespace {

/// Takes the value over. False when it is none of those that the option's line in the help lists.
using Setter = bool (*)(Options& options, const std::string& value);

struct Option {
  const char* name;
  const char* value;  ///< what to write for it; empty when the option stands alone
  const char* meaning;
  Setter set;
};

bool SetNumber(double& target, const std::string& value, double lowest, double highest) {
  const auto number = ParseNumber(value, lowest, highest);
  if (number) target = *number;
  return number.has_value();
}

bool SetText(std::string& target, const std::string& value, size_t longest) {
  const bool printable =
      std::all_of(value.begin(), value.end(), [](char c) { return c >= ' ' && c <= '~'; });
  if (!printable || value.size() > longest) return false;
  target = value;
  return true;
}

bool SetPath(std::string& target, const std::string& value) {
  target = value;
  return !value.empty();
}

bool SetType(UnitType& target, const std::string& value) {
  if (value != "online" && value != "offline") return false;
  target = value == "online" ? UnitType::OnLine : UnitType::OffLine;
  return true;
}

using Text = const std::string&;

constexpr Option kOptions[] = {
    {"--link", "PATH", "link to the pseudo-terminal, such as DIR/com1",
     [](Options& o, Text value) { return SetPath(o.link, value); }},
    {"--control", "PATH", "local socket for control commands",
     [](Options& o, Text value) { return SetPath(o.control, value); }},
    {"--log", "FILE", "adds every command received and its time; - for standard output",
     [](Options& o, Text value) { return SetPath(o.log, value); }},
    {"--type", "online|offline", "kind of unit (online)",
     [](Options& o, Text value) { return SetType(o.unit.type, value); }},
    {"--company", "TEXT", "at most 15 characters (VAREK)",
     [](Options& o, Text value) { return SetText(o.unit.company, value, kCompanyWidth); }},
    {"--model", "TEXT", "at most 10 characters (SIM-1000)",
     [](Options& o, Text value) { return SetText(o.unit.model, value, kModelWidth); }},
    {"--unit-version", "TEXT", "at most 10 characters (V1.00)",
     [](Options& o, Text value) { return SetText(o.unit.version, value, kVersionWidth); }},
    {"--rated-voltage", "0..999.9", "volts; the mains stand 0.5 V above it (220)",
     [](Options& o, Text value) { return SetNumber(o.unit.ratedVoltage, value, 0, 999.9); }},
    {"--rated-current", "0..999", "amperes (4)",
     [](Options& o, Text value) { return SetNumber(o.unit.ratedCurrent, value, 0, 999); }},
    {"--rated-battery", "0..999.9", "volts; an off-line unit has a block for each 12 V (24)",
     [](Options& o, Text value) { return SetNumber(o.unit.ratedBatteryVoltage, value, 0, 999.9); }},
    {"--rated-frequency", "0..99.9", "hertz; the mains have it too (50)",
     [](Options& o, Text value) { return SetNumber(o.unit.ratedFrequency, value, 0, 99.9); }},
    {"--runtime", "0.1..10000", "minutes of a full battery at a load of 100 percent (10)",
     [](Options& o, Text value) { return SetNumber(o.unit.runtimeMinutes, value, 0.1, 10000); }},
    {"--charge", "0.1..10000", "minutes from empty to full (240)",
     [](Options& o, Text value) { return SetNumber(o.unit.chargeMinutes, value, 0.1, 10000); }},
    {"--speed", "0.01..10000", "times that the unit's time is faster than the real one (1)",
     [](Options& o, Text value) { return SetNumber(o.speed, value, 0.01, 10000); }},
    {"--help", "", "prints this and ends", [](Options& o, Text) { return o.help = true; }},
};

const Option& Find(const std::string& name) {
  for (const auto& option : kOptions) {
    if (name == option.name) return option;
  }
  throw OptionError("unknown option '" + name + "'");
}

bool StandsAlone(const Option& option) { return *option.value == '\0'; }

/// An argument cut at its "=", if it has one.
struct Argument {
  std::string name;
  std::optional<std::string> value;

  explicit Argument(const std::string& text) {
    const size_t mark = text.find('=');
    name = text.substr(0, mark);
    if (mark != text.npos) value = text.substr(mark + 1);
  }
};

void Apply(const Option& option, const std::optional<std::string>& value, Options& options) {
  const std::string name = option.name;
  if (StandsAlone(option) && value) throw OptionError(name + " takes no value");
  if (!StandsAlone(option) && !value) throw OptionError(name + " needs a value");
  if (option.set(options, value.value_or(""))) return;
  throw OptionError(name + " does not take '" + *value + "', but " + option.value + ": " +
                    option.meaning);
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (size_t i = 0; i < arguments.size(); ++i) {
    Argument argument(arguments[i]);
    const Option& option = Find(argument.name);
    const bool valueFollows = !StandsAlone(option) && !argument.value && i + 1 < arguments.size();
    if (valueFollows) argument.value = arguments[++i];
    Apply(option, argument.value, options);
  }
  return options;
}

std::string OptionHelp() {
  std::string help;
  for (const auto& option : kOptions) {
    char text[128];
    std::snprintf(text, sizeof text, "  %-18s%-15s %s\n", option.name, option.value,
                  option.meaning);
    help += text;
  }
  return help;
}

}  // namespace simulator
