// The unit itself: mains, battery, output, tests and shutdowns. It knows no clock and no line;
// whoever owns it moves its time with Advance and hands it the command texts that arrive.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/battery.h"
#include "simulator/unit_commands.h"
#include "simulator/unit_description.h"

namespace simulator {

/// Whether the unit finds out by itself that its battery is low or is told so.
enum class BatteryLowMode { Auto, On, Off };

class UpsModel final {
 public:
  using Milliseconds = std::chrono::milliseconds;

  /// The charge in percent at and below which the battery counts as low.
  static constexpr double kBatteryLowPercent = 20;

  /// A unit on mains with a full battery and a load of 35 percent.
  explicit UpsModel(const UnitDescription& unit);

  /// Lets `elapsed` go by. Moments that fall within it take effect in their order.
  void Advance(Milliseconds elapsed);

  /// Takes one command, without its carriage return. A query yields its line with the final
  /// carriage return; a command that is obeyed without a reply, or is unknown, yields nothing.
  std::optional<std::string> Handle(std::string_view command);

  void SetMains(bool on);
  void SetLoad(double percent);         ///< clamps to 0 to 999
  void SetCharge(double percent);       ///< clamps to 0 to 100
  void SetTemperature(double celsius);  ///< clamps to 0 to 99.9
  void SetFault(bool on) { fault_ = on; }
  void SetBatteryLow(BatteryLowMode mode) { batteryLowMode_ = mode; }

  /// Everything above as one JSON object in one line, without a line end.
  std::string StateAsJson() const;

 private:
  bool OutputOn() const { return !switchedOff_ && (mainsOn_ || !battery_.Empty()); }
  bool FeedsFromBattery() const { return OutputOn() && (!mainsOn_ || testRuns_); }
  bool BatteryLow() const;
  double MainsVoltage() const;
  double OutputVoltage() const;
  std::string Flags() const;
  std::string Status() const;

  Milliseconds NextStep(Milliseconds atMost) const;
  void MoveBattery(Milliseconds step);
  void MoveTest(Milliseconds step);
  void MoveShutdown(Milliseconds step);
  void MoveRestart(Milliseconds step);

  void Obey(std::string_view command);
  /// Without a time it runs until the battery is low.
  void StartTest(std::optional<Milliseconds> time);
  void EndTest();
  void StartShutdown(const ShutdownOrder& order);
  void CancelShutdown();
  void SwitchOff();
  void SwitchOn();
  void RestartWhenDue();

  UnitDescription unit_;
  Battery battery_;
  bool mainsOn_ = true;
  double load_ = 35;
  double temperature_ = 28.5;
  double faultVoltage_;
  bool fault_ = false;
  bool beeper_ = false;
  BatteryLowMode batteryLowMode_ = BatteryLowMode::Auto;

  bool testRuns_ = false;
  std::optional<Milliseconds> testLeft_ = Milliseconds{0};  ///< none: until the battery is low

  std::optional<Milliseconds> shutdownLeft_;  ///< while it counts
  bool switchedOff_ = false;
  /// As ordered until the output is off, then what is left of it; none without a timed restart.
  std::optional<Milliseconds> restartLeft_;
  int shutdowns_ = 0;
  int restarts_ = 0;

  int64_t commandsReceived_ = 0;
  std::string lastCommand_;
};

}  // namespace simulator
