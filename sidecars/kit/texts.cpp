#include "kit/texts.h"

#include <sstream>

#include "platform/errors/log.h"
#include "platform/errors/runtime_error.h"
#include "platform/storage/database.h"
#include "platform/system/paths.h"
#include "platform/text/text.h"

namespace sidecar {

namespace {

constexpr int kLanguageLine = 11;
constexpr int kLanguages = 3;

int KnownLanguage(int language) { return language > 0 && language < kLanguages ? language : 0; }

}  // namespace

int ChosenLanguage() try {
  std::istringstream lines(platform::ReadWholeFile(platform::ProgramPath("\\config.qmz")));
  std::string line;
  for (int i = 0; i < kLanguageLine; ++i) std::getline(lines, line);
  return KnownLanguage(static_cast<int>(platform::LenientNumber(line)));
} catch (const platform::RuntimeError&) {
  return 0;
}

std::string Text(size_t number, int language) try {
  platform::Database database(platform::ProgramPath("\\database\\LangData.mdb"),
                              platform::Access::ReadOnly);
  const auto row =
      database.OpenRecordset("SELECT * FROM LangData WHERE number = " + std::to_string(number));
  return platform::ValueText(row->Get(KnownLanguage(language) + 1));
} catch (const platform::RuntimeError& error) {
  platform::LogLine("language table: " + std::string(error.what()));
  return "";
}

}  // namespace sidecar
