#include "settings/language.h"

#include "core/forms.h"
#include "platform/database.h"
#include "platform/guard.h"
#include "platform/paths.h"

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

constexpr std::array<int, 12> kEventTexts{131, 132, 133, 134, 135, 136,
                                          137, 138, 139, 140, 141, 142};
constexpr std::array<int, 9> kStageTexts{166, 167, 168, 169, 170, 171, 172, 173, 174};
constexpr std::array<int, 9> kActionNames{95, 96, 3, 97, 98, 99, 100, 101, 112};
constexpr std::array<int, 4> kDeleteButtons{106, 91, 93, 94};
constexpr std::array<int, 18> kSettingsMessages{244, 245, 246, 247, 290, 291, 292, 294, 295,
                                                296, 297, 298, 299, 300, 301, 302, 313, 314};

template <size_t N>
void CopyTexts(const std::array<int, N>& numbers, std::array<std::string, N>& texts) {
  for (size_t i = 0; i < N; ++i) texts[i] = LangText[static_cast<size_t>(numbers[i])];
}

void CopySharedTexts() {
  CopyTexts(kEventTexts, EventText);
  CopyTexts(kStageTexts, StageText);
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
