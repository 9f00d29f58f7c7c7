#include "records/shutdown/system_countdown.h"

#include <algorithm>

#include "platform/errors/guard.h"
#include "platform/system/paths.h"
#include "platform/system/process.h"
#include "platform/system/system.h"
#include "platform/text/text.h"
#include "records/notices/event_record.h"
#include "texts/text_numbers.h"

namespace varek {

namespace {
constexpr int kTick = 1000;
constexpr int kAutosaveSeconds = 120;
constexpr char kShutdownPlace[] = "form10 system shutdown";

void StartShutdownCommand() {
  platform::Guarded(kShutdownPlace, [] { platform::ShutDownSystem(); });
}

}  // namespace

FormSlot<Form10>& SystemCountdown() {
  static FormSlot<Form10> slot(Form10::kNumber);
  return slot;
}

Form10::Form10()
    : view_(MakeCountdownView(CountdownPlace::Left, [] { SystemCountdown().Unload(); })),
      systemShutdown_(kShutdownPlace, StartShutdownCommand),
      Timer1("form10 Timer1", [this] { Timer1_Timer(); }) {
  view_->SetCaption("關機倒數");
  ApplyLanguage();
}

void Form10::ApplyLanguage() { view_->ApplyLanguage(texts::kComputerCountdownCaption); }

void Form10::SysShuntDown(int minutes) {
  Timer1.SetInterval(kTick);
  view_->Show();
  if (CountDown != 0 && minutes * 60 < CountDown) CountDown = static_cast<int16_t>(minutes * 60);
}

void Form10::Timer1_Timer() {
  --CountDown;
  if (CountDown < 1) ShutDownNow();
  ShowTime();
  StartAutosave();
}

void Form10::ShutDownNow() {
  EventSystemShutdown();
  if (DataCenter.FormOpen[Form11::kNumber]) EventUPSShutdown();
  systemShutdown_.Begin();
  Timer1.SetInterval(0);
}

void Form10::ShowTime() {
  const int seconds = std::max<int>(CountDown, 0);
  TimeText = std::to_string(seconds / 60) + ":" + platform::ZeroPadded(seconds % 60, 2);
  // The leading zero stands in front of any number of minutes: 05:30, but also 010:00.
  view_->SetTime("0" + TimeText);
}

/// Gives the save program the last two minutes of the countdown.
void Form10::StartAutosave() {
  if (CountDown >= kAutosaveSeconds || !DataCenter.settings.AutoSaveOnShutdown || AutoSaveStarted)
    return;
  AutoSaveStarted = kSet;
  platform::StartProgram(platform::ProgramFolder() + "\\Autosave.exe", "",
                         platform::WindowStyle::NormalFocus);
}

}  // namespace varek
