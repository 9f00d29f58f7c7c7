// Which pictogram stands for which event and which action, once for the windows and the web pages.
#pragma once

#include "pictures/pictograms.h"

namespace varek::pictures {

/// What a sign's mark says; its colour depends on the ground.
enum class Tone { Plain, Good, Active, Warning, Alarm };

struct Sign {
  Pictogram pictogram;
  Tone tone;
};

/// The events by their numbers, from 1.
constexpr Sign kEventSigns[] = {
    {ProgramStart, Tone::Good},  {ProgramEnd, Tone::Plain},  {Linked, Tone::Good},
    {Unlinked, Tone::Alarm},     {ComputerOff, Tone::Alarm}, {MainsFailed, Tone::Alarm},
    {BatteryLow, Tone::Alarm},   {MainsPresent, Tone::Good}, {UpsOff, Tone::Alarm},
    {Overloaded, Tone::Warning}, {Fault, Tone::Alarm},       {BatteryTest, Tone::Active},
};

/// The actions in the order of the schedule's list: T, L, C, S, R, A, B, M.
constexpr Sign kActionSigns[] = {
    {BatteryTest, Tone::Active},
    {BatteryTestUntilLow, Tone::Warning},
    {BatteryTestCancelled, Tone::Alarm},
    {UpsOff, Tone::Alarm},
    {UpsRestart, Tone::Good},
    {BothOff, Tone::Alarm},
    {BothRestart, Tone::Good},
    {ComputerOff, Tone::Alarm},
};

}  // namespace varek::pictures
