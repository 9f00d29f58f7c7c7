#include "simulator/ups_model.h"

#include <algorithm>

#include "simulator/reply_lines.h"

namespace simulator {

namespace {

using std::chrono::milliseconds;
using namespace std::chrono_literals;

constexpr milliseconds kShortTest = 10s;
/// How late the model may notice a charge that it has no moment for, such as battery low.
constexpr milliseconds kLongestStep = 100ms;

/// The mains stand a little off the rating, so that input and output can be told apart.
constexpr double kMainsAboveRating = 0.5;
constexpr double kHighestLoad = 999;
constexpr double kHighestTemperature = 99.9;

}  // namespace

UpsModel::UpsModel(const UnitDescription& unit)
    : unit_(unit), battery_(unit.runtimeMinutes, unit.chargeMinutes) {
  faultVoltage_ = MainsVoltage();
}

void UpsModel::Advance(Milliseconds elapsed) {
  while (elapsed > 0ms) {
    const Milliseconds step = NextStep(elapsed);
    elapsed -= step;
    MoveBattery(step);
    MoveTest(step);
    // A restart is counted from the switching off, so the step that ends in one has no part in it.
    MoveRestart(step);
    MoveShutdown(step);
  }
}

UpsModel::Milliseconds UpsModel::NextStep(Milliseconds atMost) const {
  Milliseconds step = std::min(atMost, kLongestStep);
  const auto notBeyond = [&step](Milliseconds left) {
    if (left > 0ms) step = std::min(step, left);
  };
  if (testLeft_) notBeyond(*testLeft_);
  if (shutdownLeft_) notBeyond(*shutdownLeft_);
  if (switchedOff_ && restartLeft_) notBeyond(*restartLeft_);
  return step;
}

void UpsModel::MoveBattery(Milliseconds step) {
  if (FeedsFromBattery()) {
    battery_.Drain(step, load_);
  } else if (mainsOn_) {
    battery_.Charge(step);
  }
}

void UpsModel::MoveTest(Milliseconds step) {
  if (!testRuns_) return;
  if (testLeft_) *testLeft_ -= step;
  const bool over = testLeft_ ? *testLeft_ <= 0ms : BatteryLow();
  if (over || battery_.Empty()) EndTest();
}

void UpsModel::MoveShutdown(Milliseconds step) {
  if (!shutdownLeft_) return;
  *shutdownLeft_ -= step;
  if (*shutdownLeft_ <= 0ms) SwitchOff();
}

void UpsModel::MoveRestart(Milliseconds step) {
  if (!switchedOff_ || !restartLeft_) return;
  *restartLeft_ = std::max(0ms, *restartLeft_ - step);
  RestartWhenDue();
}

std::optional<std::string> UpsModel::Handle(std::string_view command) {
  ++commandsReceived_;
  lastCommand_ = command;
  if (command == "Q1") return Status();
  if (command == "F") return RatingLine(unit_);
  if (command == "I") return IdentificationLine(unit_);
  Obey(command);
  return std::nullopt;
}

void UpsModel::Obey(std::string_view command) {
  if (command == "Q") {
    beeper_ = !beeper_;
  } else if (command == "C") {
    CancelShutdown();
  } else if (command == "CT") {
    EndTest();
  } else if (command == "T") {
    StartTest(kShortTest);
  } else if (command == "TL") {
    StartTest(std::nullopt);
  } else if (command.starts_with('T')) {
    const auto time = ParseMinutes(command.substr(1));
    if (time && *time > 0ms) StartTest(*time);
  } else if (const auto order = ParseShutdown(command)) {
    StartShutdown(*order);
  }
}

void UpsModel::StartTest(std::optional<Milliseconds> time) {
  if (!mainsOn_ || !OutputOn() || battery_.Empty()) return;
  testRuns_ = true;
  testLeft_ = time;
}

void UpsModel::EndTest() {
  testRuns_ = false;
  testLeft_ = 0ms;
}

void UpsModel::StartShutdown(const ShutdownOrder& order) {
  if (!OutputOn()) return;
  shutdownLeft_ = order.delay;
  restartLeft_ = order.restart;
  if (order.delay == 0ms) SwitchOff();
}

void UpsModel::CancelShutdown() {
  shutdownLeft_.reset();
  if (switchedOff_ && mainsOn_) SwitchOn();
}

void UpsModel::SwitchOff() {
  shutdownLeft_.reset();
  EndTest();
  switchedOff_ = true;
  ++shutdowns_;
  RestartWhenDue();
}

void UpsModel::SwitchOn() {
  switchedOff_ = false;
  restartLeft_.reset();
  ++restarts_;
}

void UpsModel::RestartWhenDue() {
  if (switchedOff_ && mainsOn_ && restartLeft_ == 0ms) SwitchOn();
}

void UpsModel::SetMains(bool on) {
  if (on == mainsOn_) return;
  mainsOn_ = on;
  if (!on) {
    faultVoltage_ = 0;
    EndTest();
  } else if (switchedOff_ && !restartLeft_) {
    SwitchOn();
  } else {
    RestartWhenDue();
  }
}

void UpsModel::SetLoad(double percent) { load_ = std::clamp(percent, 0.0, kHighestLoad); }

void UpsModel::SetCharge(double percent) { battery_.SetPercent(percent); }

void UpsModel::SetTemperature(double celsius) {
  temperature_ = std::clamp(celsius, 0.0, kHighestTemperature);
}

bool UpsModel::BatteryLow() const {
  if (batteryLowMode_ == BatteryLowMode::Auto) return battery_.Percent() <= kBatteryLowPercent;
  return batteryLowMode_ == BatteryLowMode::On;
}

double UpsModel::MainsVoltage() const {
  return mainsOn_ ? unit_.ratedVoltage + kMainsAboveRating : 0;
}

double UpsModel::OutputVoltage() const {
  if (!OutputOn()) return 0;
  const bool passesMains = unit_.type == UnitType::OffLine && !FeedsFromBattery();
  return passesMains ? MainsVoltage() : unit_.ratedVoltage;
}

std::string UpsModel::Flags() const {
  const bool bits[] = {!mainsOn_, BatteryLow(),
                       false,  // no bypass is modelled
                       fault_,    unit_.type == UnitType::OffLine,
                       testRuns_, shutdownLeft_.has_value(),
                       beeper_};
  std::string flags;
  for (const bool bit : bits) flags += bit ? '1' : '0';
  return flags;
}

std::string UpsModel::Status() const {
  StatusValues values;
  values.inputVoltage = MainsVoltage();
  values.inputFaultVoltage = faultVoltage_;
  values.outputVoltage = OutputVoltage();
  values.load = OutputOn() ? load_ : 0;
  values.frequency = mainsOn_ || OutputOn() ? unit_.ratedFrequency : 0;
  values.batteryVoltage = ReportedVoltage(battery_.Percent(), unit_);
  values.temperature = temperature_;
  values.flags = Flags();
  return StatusLine(values);
}

}  // namespace simulator
