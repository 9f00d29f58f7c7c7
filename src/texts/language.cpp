#include "texts/language.h"

#include "core/forms.h"
#include "platform/errors/guard.h"
#include "platform/storage/database.h"
#include "platform/system/paths.h"

namespace varek {

std::array<std::string, 501> LangText;
std::array<std::string, 12> EventText;
std::array<std::string, 9> StageText;
std::array<std::string, 9> ActionName;
std::array<std::string, 4> DeleteButtonText;
std::array<std::string, 18> SettingsMessage;

namespace {

constexpr char kFile[] = "\\database\\LangData.mdb";
constexpr int kLanguageForm = 7;
constexpr int kLastView = 17;

constexpr std::array<size_t, 9> kActionNames{
    texts::kActionShortTest,   texts::kActionTestUntilLow,     texts::kCancelTest,
    texts::kActionShutDownUps, texts::kActionRestartUps,       texts::kActionShutDownBoth,
    texts::kActionRestartBoth, texts::kActionShutDownComputer, texts::kCancelledOnDate};
constexpr std::array<size_t, 4> kDeleteButtons{texts::kDeleteWhole, texts::kDeleteThisDate,
                                               texts::kDeleteWeekly, texts::kDeleteMonthly};
constexpr std::array<size_t, 18> kSettingsMessages{texts::kLoginPasswordsDiffer,
                                                   texts::kControlPasswordsDiffer,
                                                   texts::kNoUpsOnAnyPort,
                                                   texts::kWebChangesAtNextStart,
                                                   texts::kScheduleDelaysWrong,
                                                   texts::kMainsDelaysWrong,
                                                   texts::kBatteryDelaysWrong,
                                                   texts::kWebPortOutOfRange,
                                                   texts::kLoginPasswordTooShort,
                                                   texts::kControlPasswordTooShort,
                                                   texts::kComputerDelayOutOfRange,
                                                   texts::kUpsDelayOutOfRange,
                                                   texts::kMainsComputerDelayOutOfRange,
                                                   texts::kMainsUpsDelayOutOfRange,
                                                   texts::kBatteryUpsDelayOutOfRange,
                                                   texts::kBatteryComputerDelayOutOfRange,
                                                   texts::kRunsAsProgram,
                                                   texts::kRunsAsService};

template <size_t N>
void CopyTexts(const std::array<size_t, N>& numbers, std::array<std::string, N>& texts) {
  for (size_t i = 0; i < N; ++i) texts[i] = LangText[numbers[i]];
}

template <size_t N>
void CopyRange(size_t first, std::array<std::string, N>& texts) {
  for (size_t i = 0; i < N; ++i) texts[i] = LangText[first + i];
}

void CopySharedTexts() {
  CopyRange(texts::kEventMonitorStarted, EventText);
  CopyRange(texts::kStateNormal, StageText);
  CopyTexts(kActionNames, ActionName);
  CopyTexts(kDeleteButtons, DeleteButtonText);
  CopyTexts(kSettingsMessages, SettingsMessage);
}

void ReadTexts(int languageIndex) {
  platform::Database database(platform::ProgramPath(kFile), platform::Access::ReadOnly);
  const auto rows = database.OpenRecordset("SELECT  *  FROM LangData");
  rows->MoveFirst();
  for (size_t row = 0; row < kTextCount; ++row) {
    LangText[row] = platform::ValueText(rows->Get(languageIndex + 1));
    rows->MoveNext();
  }
}

}  // namespace

void Loadlanguage(int languageIndex) {
  platform::Guarded("language", [&] { ReadTexts(languageIndex); });
  language(0);
  language(12);
  UnloadForm(kLanguageForm);
}

void language(int view) {
  CopySharedTexts();
  if (view >= 1 && view <= kLastView) ApplyFormLanguage(view);
}

}  // namespace varek
