// The pictograms, each once: lamps, calendar pictures, menu pictures and icons show the same sign
// where they mean the same thing. Each draws into a unit square.
#pragma once

#include "pictures/sketch.h"

namespace varek::pictures {

using Pictogram = void (*)(Sketch s);

// Link and mains.
void Linked(Sketch s);
void Unlinked(Sketch s);
void MainsPresent(Sketch s);
void MainsFailed(Sketch s);

// Battery.
void BatteryFull(Sketch s);
void BatteryInUse(Sketch s);
void BatteryLow(Sketch s);
void BatteryGood(Sketch s);
void BatteryFailed(Sketch s);
void Charging(Sketch s);
void BatteryTest(Sketch s);
void BatteryTestUntilLow(Sketch s);
void BatteryTestCancelled(Sketch s);
void NoBatteryTest(Sketch s);

// Condition.
void Healthy(Sketch s);
void Hot(Sketch s);
void Overloaded(Sketch s);
void Fault(Sketch s);

// Way of working: how the current goes from the mains to the load.
void VoltageRegulation(Sketch s);
void Standby(Sketch s);
void BypassRoute(Sketch s);
void DoubleConversion(Sketch s);

// Start and end.
void ProgramStart(Sketch s);
void ProgramEnd(Sketch s);
void ComputerOn(Sketch s);
void ComputerOff(Sketch s);
void UpsOff(Sketch s);
void UpsRestart(Sketch s);
void BothOff(Sketch s);
void BothRestart(Sketch s);

// Views.
void Language(Sketch s);
void Settings(Sketch s);
void Calendar(Sketch s);
void EventList(Sketch s);
void History(Sketch s);
void Oscilloscope(Sketch s);
void ShortMessage(Sketch s);
void Mail(Sketch s);
void Table(Sketch s);
void Information(Sketch s);

void ProgramSign(Sketch s);

}  // namespace varek::pictures
