// The edges at which a reading, a limit, a shown value or a query would come out wrong.

#include "platform/text/text.h"

#include <gtest/gtest.h>

#include <cmath>

#include "error_of.h"
#include "platform/storage/query_dialect.h"

namespace platform {
namespace {

using namespace std::string_literals;

TEST(Text, LenientNumberTakesWhatIsANumberAndNeverFails) {
  const std::pair<std::string, double> cases[] = {
      {"  027.1 ", 27.1}, {".5", 0.5}, {"1.2.3", 1.2}, {"12\0"s, 12},  {"1e3", 1},
      {"0x1F", 0},        {"5,7", 5},  {"", 0},        {".", 0},       {"-5", 0},
      {"+5", 0},          {"\t5", 0},  {"nan", 0},     {"\xFF\x39", 0}};
  for (const auto& [text, number] : cases) EXPECT_EQ(LenientNumber(text), number) << text;
}

TEST(Text, RoundingGoesToTheEvenNeighbourAndKnowsItsRange) {
  const std::pair<double, int> cases[] = {{0.5, 0},   {1.5, 2},         {-1.5, -2},
                                          {-2.5, -2}, {32767.4, 32767}, {-32768.5, -32768}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundToInt16(value), rounded) << value;
  for (double value : {32767.5, -32768.6, 1e300, double{INFINITY}, double{NAN}}) {
    EXPECT_EQ(ErrorOf([&] { RoundToInt16(value); }), errors::kOverflow) << value;
  }
}

TEST(Text, ASingleShowsSevenDigitsAndPaddingGivesTheSignNoDigitsPlace) {
  const std::pair<float, const char*> cases[] = {
      {0.0F, "0"}, {27.1F, "27.1"}, {1234567, "1234567"}, {1e7F, "1E+07"}, {1.0F / 3, "0.3333333"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(SingleText(value), text);
  const std::pair<int, const char*> numbers[] = {{6, "0006"}, {-6, "-0006"}, {12345, "12345"}};
  for (const auto& [value, padded] : numbers) EXPECT_EQ(ZeroPadded(value, 4), padded);
}

TEST(Text, CuttingTakesBlanksAloneAndStaysInside) {
  EXPECT_EQ(Trim("  \ta b  ") + Trim("    ") + TrimRight(""), "\ta b");
  EXPECT_EQ(TrimRight("  a \r  "), "  a \r");
  EXPECT_EQ(ShownText("V01.25\r\0\0"s) + ShownText("V2\0x\r"s) + ShownText(""), "V01.25V2");
  EXPECT_EQ(Middle("(220.5", 2, 4), "220.");
  EXPECT_EQ(Middle("(", 3, 5), "");
  EXPECT_TRUE(SameIgnoringCase("Event.MDB", "eVENT.mdb"));
  EXPECT_FALSE(SameIgnoringCase("[", "{") || SameIgnoringCase("ab", "abc"));
}

TEST(QueryDialect, TranslatesEveryFormOfTheSystem) {
  const std::pair<const char*, const char*> cases[] = {
      {" \tselect\n*\r\nfrom allevent\nwHeRe [type]=1 ", R"(allevent: "type"=1 )"},
      {"Select *  From  [20260310] Where  [date]> #08:00:00# And [Input voltage]<090.5",
       R"(20260310: "date"> '08:00:00' And "Input voltage"<090.5)"},
      {"Select *  From [schedule] Where  [date] = #2026/3/9# Or [rept] In ('Day','M31' )",
       R"(schedule: "date" = '2026-03-09' Or "rept" In ('Day','M31' ))"},
      {"Select * From [t] Where [type] In ( 999,1,) AND [a]> #2026/3/1 0:0:01#",
       R"(t: "type" In ( 999,1) AND "a"> '2026-03-01 00:00:01')"},
      {"Select * From [t] Where [a \"b\" #c;]=\"it's #1; [x], )\"",
       R"(t: "a ""b"" #c;"='it''s #1; [x], )')"},
      {"Select * From [t] Where [a] In ('x,', 'it''s', )", R"(t: "a" In ('x,', 'it''s'))"},
  };
  for (const auto& [query, translated] : cases) {
    const auto [table, condition] = TranslateQuery(query);
    EXPECT_EQ(table + ": " + condition, translated);
  }
}

TEST(QueryDialect, RefusesWhatItCannotTakeWhole) {
  const std::string t = "Select * From [t] Where ";
  for (const std::string& query :
       {""s, "Select [type] From [log]"s, "Select * From [log"s, "Select * From []"s, t,
        "Select * From [log] Order By [type]"s, t + "1=1; Drop Table t", t + "[a = 1",
        t + "[a] > #2026/1/1", t + "[a] = 'D1", t + "[a] > #2026/2/29#", t + "[a] = 1\0 Or 1=1"s})
    EXPECT_EQ(ErrorOf([&] { TranslateQuery(query); }), errors::kQuerySyntax) << query;
}

TEST(QueryDialect, DatesSortWhateverTheirPadding) {
  const std::pair<const char*, const char*> dates[] = {{"2000/02/29", "2000-02-29"},
                                                       {"07:5:9", "07:05:09"},
                                                       {" 2026-01-5  7:5", "2026-01-05 07:05:00"}};
  for (const auto& [text, sortable] : dates) EXPECT_EQ(SortableDate(text), sortable);
  for (const char* text :
       {"2100/02/29", "2026/4/31", "2026/0/1", "2026/13/1", "2026/1/0", "26/1/5", "2026/1", "24:00",
        "12:60", "12:00:60", "7:05pm", "7:05 2026/1/5", "2026/1/5 7:05 7:05", "2026/1/5'", ""})
    EXPECT_FALSE(SortableDate(text)) << text;
}

}  // namespace
}  // namespace platform
