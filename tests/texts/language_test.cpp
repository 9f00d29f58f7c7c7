// The language table as the build makes it, and what becomes of a broken one.

#include "texts/language.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "platform/storage/database.h"
#include "support/monitor_fixture.h"

namespace varek {
namespace {

using LanguageTest = test::MonitorTest;

TEST_F(LanguageTest, EveryLanguageFillsEveryText) {
  std::set<std::string> eventSets;
  for (int language = 0; language < 3; ++language) {
    Loadlanguage(language);
    for (size_t i = 0; i < kTextCount; ++i) EXPECT_NE(LangText[i], "") << language << " " << i;
    eventSets.insert(EventText[5]);
    // Pieces that other code builds texts from.
    EXPECT_EQ(std::ranges::count(LangText[texts::kRepeatMonthDay], '0'), 1) << language;
    EXPECT_EQ(LangText[texts::kLoggedIn][0], ' ') << language;
  }
  EXPECT_EQ(eventSets.size(), 3U);
}

TEST_F(LanguageTest, AShortOrAbsentTableLeavesTextsEmptyAndGoesOn) {
  const std::string file = Folder() + "/database/LangData.mdb";
  platform::Database table(file);
  auto rows = table.OpenRecordset("Select * From LangData Where [number] > 135");
  while (!rows->Eof()) {
    rows->MoveFirst();
    rows->Delete();
  }
  Loadlanguage(0);
  EXPECT_NE(EventText[0], "");
  EXPECT_EQ(EventText[11], "");

  LangText = {};
  std::filesystem::remove(file);
  Loadlanguage(0);
  EXPECT_EQ(EventText[0], "");
}

}  // namespace
}  // namespace varek
