// How the unit prints itself. Tests read these names: do not change them.

#include "simulator/json_line.h"
#include "simulator/ups_model.h"

namespace simulator {

namespace {

double Seconds(std::chrono::milliseconds time) {
  return std::chrono::duration<double>(time).count();
}

/// Seconds left; null where something waits without a time.
void AddTimeLeft(JsonLine& json, const char* name, std::optional<std::chrono::milliseconds> left) {
  if (left) {
    json.AddNumber(name, Seconds(*left), 3);
  } else {
    json.AddNull(name);
  }
}

}  // namespace

std::string UpsModel::StateAsJson() const {
  using namespace std::chrono_literals;
  const Milliseconds none = 0ms;
  JsonLine json;
  json.AddFlag("mains", mainsOn_);
  json.AddNumber("output", OutputVoltage(), 1);
  json.AddNumber("load", load_, 1);
  json.AddNumber("battery", battery_.Percent(), 2);
  json.AddNumber("batteryVoltage", ReportedVoltage(battery_.Percent(), unit_), 2);
  json.AddNumber("temperature", temperature_, 1);
  json.AddText("flags", Flags());
  json.AddFlag("test", testRuns_);
  AddTimeLeft(json, "testSeconds", testLeft_);
  json.AddFlag("shutdown", shutdownLeft_.has_value());
  AddTimeLeft(json, "shutdownSeconds", shutdownLeft_.value_or(none));
  json.AddFlag("switchedOff", switchedOff_);
  AddTimeLeft(json, "restartSeconds", switchedOff_ ? restartLeft_ : none);
  json.AddNumber("shutdowns", shutdowns_);
  json.AddNumber("restarts", restarts_);
  json.AddFlag("beeper", beeper_);
  json.AddNumber("commands", static_cast<double>(commandsReceived_));
  json.AddText("lastCommand", lastCommand_);
  return json.Take();
}

}  // namespace simulator
