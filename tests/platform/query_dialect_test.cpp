// Every form of query that the system builds, what is refused, and texts that are no queries.

#include "platform/query_dialect.h"

#include <gtest/gtest.h>

#include <random>

#include "error_of.h"

namespace platform {
namespace {

using namespace std::string_literals;

TEST(QueryDialect, TranslatesEveryQueryOfTheSystem) {
  const struct {
    const char* query;
    const char* table;
    const char* condition;
  } cases[] = {
      {"Select * From [HTTPLOG] Where [Time] < #2026/02/25#", "HTTPLOG",
       R"("Time" < '2026-02-25')"},
      {"Select *  From [schedule] Where  [date] = #2026/3/9# Or [rept] In ('Day','W1' ,'M9')",
       "schedule", R"("date" = '2026-03-09' Or "rept" In ('Day','W1' ,'M9'))"},
      {"Select *  From [schedule] Where  [date] >= #2026/9/01# AND  [date] < #2027/01/01# Or "
       "[rept] In ('Day','M31' )",
       "schedule",
       R"("date" >= '2026-09-01' AND  "date" < '2027-01-01' Or "rept" In ('Day','M31' ))"},
      {"Select *  From  [20260310] Where  [date]> #08:00:00# And [date]< #9:5#", "20260310",
       R"("date"> '08:00:00' And "date"< '09:05:00')"},
      {"Select *  From  [allevent] Where [DateANDTime] >= #2026/03/10 08:00:00# And "
       "[DateANDTime] <= #2026/3/10 9:0:0# And [type] In (1,2,12)",
       "allevent",
       R"("DateANDTime" >= '2026-03-10 08:00:00' And )"
       R"("DateANDTime" <= '2026-03-10 09:00:00' And "type" In (1,2,12))"},
      {"Select *  From [allevent] Where [type] In ( 999,1,12,) AND [DateANDTime]> "
       "#2026/3/1 00:00:01#",
       "allevent", R"("type" In ( 999,1,12) AND "DateANDTime"> '2026-03-01 00:00:01')"},
      {"Select * From [20260310] Where [date] > #00:00:00# And [Input voltage] > 220.0 Or "
       "[Battery capacious] < 090.5",
       "20260310",
       R"("date" > '00:00:00' And "Input voltage" > 220.0 Or "Battery capacious" < 090.5)"},
      {"SELECT  *  FROM LangData", "LangData", ""},
      {" \tselect\n*\r\nfrom allevent\nwHeRe [type]=1 ", "allevent", R"("type"=1 )"},
      {"Select * From [t] Where [a \"b\" #c;]=\"it's #1; [x], )\"", "t",
       R"("a ""b"" #c;"='it''s #1; [x], )')"},
      {"Select * From [t] Where [a] In ('x,', 'it''s', )", "t", R"("a" In ('x,', 'it''s'))"},
  };
  for (const auto& c : cases) {
    const TranslatedQuery result = TranslateQuery(c.query);
    EXPECT_EQ(result.table, c.table);
    EXPECT_EQ(result.condition, c.condition);
  }
}

TEST(QueryDialect, RefusesWhatItCannotTakeWhole) {
  const auto error = [](const std::string& query) {
    return ErrorOf([&] { TranslateQuery(query); });
  };
  for (const char* query :
       {"", "Select", "Select * From", "Select * From ", "Select [type] From [log]",
        "Select * From [log", "Select * From [log Where 1=1", "Select * From []",
        "Select * From [log] Where", "Select * From [log] Where  ",
        "Select * From [log] Order By [type]", "Select * From log; Delete From log",
        "Delete From [log]"}) {
    EXPECT_EQ(error(query), errors::kQuerySyntax) << query;
  }
  for (const char* condition : {"1=1; Drop Table t", "[a = 1", "[a] > #2026/1/1", "[a] = 'D1",
                                "[a] = \"D1", "[a] > ##", "[a] > #2026/2/29#"}) {
    EXPECT_EQ(error("Select * From [t] Where "s + condition), errors::kQuerySyntax) << condition;
  }
  EXPECT_EQ(error("Select * From [t] Where [a] = 1\0 Or 1=1"s), errors::kQuerySyntax);
}

TEST(QueryDialect, DatesSortWhateverTheirPadding) {
  const std::pair<const char*, const char*> dates[] = {
      {"2026/1/5", "2026-01-05"},   {" 2026-01-5 ", "2026-01-05"},
      {"7:05", "07:05:00"},         {"07:5:9", "07:05:09"},
      {"23:59:59", "23:59:59"},     {"2024/2/29", "2024-02-29"},
      {"2000/02/29", "2000-02-29"}, {"2026/1/5  7:05", "2026-01-05 07:05:00"}};
  for (const auto& [text, sortable] : dates) EXPECT_EQ(SortableDate(text), sortable);
  for (const char* text :
       {"2100/02/29", "2026/2/29", "2026/4/31", "2026/0/1", "2026/13/1", "2026/1/0", "2026/001/1",
        "26/1/5", "2026/1", "24:00", "12:60", "12:00:60", "7", "7:05pm", "7:05 2026/1/5",
        "2026/1/5 7:05 7:05", "2026/1/5'", ""}) {
    EXPECT_FALSE(SortableDate(text)) << text;
  }
}

/// Rubbish is translated or refused, and costs no stack however long it is.
TEST(QueryDialect, SurvivesRubbishOfAnyLength) {
  const std::string pieces[] = {"[",
                                "]",
                                "#",
                                "'",
                                "\"",
                                ";",
                                "(",
                                ",)",
                                " ",
                                "\0"s,
                                "\xff",
                                "Where ",
                                "Select * From ",
                                "In (1,",
                                "#2026/1/1#",
                                "[date]"};
  std::mt19937 random(20260310);
  for (int round = 0; round < 3000; ++round) {
    std::string text = round % 2 ? "Select * From [t] Where " : "";
    for (unsigned i = random() % 30; i > 0; --i) text += pieces[random() % std::size(pieces)];
    const int error = ErrorOf([&] { TranslateQuery(text); });
    EXPECT_TRUE(error == 0 || error == errors::kQuerySyntax);
  }
  const std::string endless(1'000'000, 'x');
  EXPECT_EQ(TranslateQuery("Select * From [" + endless + "]").table, endless);
  EXPECT_EQ(TranslateQuery(std::string(1'000'000, ' ') + "Select * From a").table, "a");
  EXPECT_THROW(TranslateCondition("[date] > #" + endless + "#"), RuntimeError);
}

}  // namespace
}  // namespace platform
