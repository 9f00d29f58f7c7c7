#include "simulator/control_commands.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "simulator/numbers.h"

namespace simulator {

namespace {

/// What a command may touch. An answer that is left empty stands for "ok".
struct Context {
  UpsModel& model;
  LineFaults& faults;
  const std::function<void()>& quit;
  std::string& answer;
};

/// False when `argument` is not what the command takes.
using Action = bool (*)(Context& context, std::string_view argument);

struct Command {
  const char* word;
  const char* argument;
  const char* meaning;
  Action action;
};

constexpr double kLongestReply = 47;

template <typename Setter>
bool Switch(std::string_view argument, Setter set) {
  if (argument != "on" && argument != "off") return false;
  set(argument == "on");
  return true;
}

template <typename Setter>
bool InRange(std::string_view argument, double highest, Setter set) {
  const auto number = ParseNumber(argument, 0, highest);
  if (number) set(*number);
  return number.has_value();
}

bool SetBatteryLow(Context& c, std::string_view argument) {
  if (argument == "auto") {
    c.model.SetBatteryLow(BatteryLowMode::Auto);
    return true;
  }
  return Switch(argument, [&c](bool on) {
    c.model.SetBatteryLow(on ? BatteryLowMode::On : BatteryLowMode::Off);
  });
}

bool SetSplit(Context& c, std::string_view argument) {
  const auto bytes = ParseNumber(argument, 0, kLongestReply);
  if (!bytes || *bytes != static_cast<size_t>(*bytes)) return false;
  c.faults.splitAt = static_cast<size_t>(*bytes);
  return true;
}

constexpr Command kCommands[] = {
    {"mains", "off|on", "the mains fail or come back",
     [](Context& c, std::string_view text) {
       return Switch(text, [&c](bool on) { c.model.SetMains(on); });
     }},
    {"load", "0..999", "load in percent; above 100 is an overload",
     [](Context& c, std::string_view text) {
       return InRange(text, 999, [&c](double percent) { c.model.SetLoad(percent); });
     }},
    {"battery", "0..100", "charge in percent; the battery voltage follows",
     [](Context& c, std::string_view text) {
       return InRange(text, 100, [&c](double percent) { c.model.SetCharge(percent); });
     }},
    {"temp", "0..99.9", "temperature in degrees Celsius",
     [](Context& c, std::string_view text) {
       return InRange(text, 99.9, [&c](double celsius) { c.model.SetTemperature(celsius); });
     }},
    {"fault", "on|off", "the unit reports that it has failed",
     [](Context& c, std::string_view text) {
       return Switch(text, [&c](bool on) { c.model.SetFault(on); });
     }},
    {"batlow", "on|off|auto", "battery low as told, or by the charge (auto)", SetBatteryLow},
    {"silent", "on|off", "commands are obeyed and logged, but no reply goes out",
     [](Context& c, std::string_view text) {
       return Switch(text, [&c](bool on) { c.faults.silent = on; });
     }},
    {"garble", "", "the next reply to Q1 is a line of rubbish",
     [](Context& c, std::string_view text) { return c.faults.garbleNext = text.empty(); }},
    {"split", "0..47", "replies go out in two writes, the first so many bytes long; 0 ends it",
     SetSplit},
    {"state", "", "answers with the unit's state as one line of JSON",
     [](Context& c, std::string_view text) {
       c.answer = c.model.StateAsJson();
       return text.empty();
     }},
    {"quit", "", "ends the simulator",
     [](Context& c, std::string_view text) {
       if (text.empty()) c.quit();
       return text.empty();
     }},
};

std::string_view TakeWord(std::string_view& line) {
  constexpr std::string_view kBlanks = " \t\r";
  line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
  const auto word = line.substr(0, line.find_first_of(kBlanks));
  line.remove_prefix(word.size());
  return word;
}

const Command* Find(std::string_view word) {
  for (const auto& command : kCommands) {
    if (word == command.word) return &command;
  }
  return nullptr;
}

std::string ErrorUnknown(std::string_view word) {
  std::string error = "error: unknown command '" + std::string(word) + "', known are:";
  for (const auto& command : kCommands) (error += ' ') += command.word;
  return error;
}

std::string ErrorArgument(const Command& command) {
  const std::string_view argument = command.argument;
  return std::string("error: ") + command.word + " takes " +
         (argument.empty() ? "no argument" : std::string(argument));
}

}  // namespace

ControlCommands::ControlCommands(UpsModel& model, LineFaults& faults, std::function<void()> quit)
    : model_(model), faults_(faults), quit_(std::move(quit)) {}

std::string ControlCommands::Execute(std::string_view line) {
  const auto word = TakeWord(line);
  const Command* command = Find(word);
  if (!command) return ErrorUnknown(word);

  const auto argument = TakeWord(line);
  std::string answer;
  Context context{model_, faults_, quit_, answer};
  const bool alone = TakeWord(line).empty();
  if (!alone || !command->action(context, argument)) return ErrorArgument(*command);
  return answer.empty() ? "ok" : answer;
}

std::string ControlCommands::Help() {
  std::string help;
  for (const auto& command : kCommands) {
    char text[128];
    std::snprintf(text, sizeof text, "  %-8s%-12s  %s\n", command.word, command.argument,
                  command.meaning);
    help += text;
  }
  return help;
}

}  // namespace simulator
