// Numbers and texts: the edges at which a reading, a limit or a shown value would come out wrong.

#include "platform/text.h"

#include <gtest/gtest.h>

#include <cmath>

#include "error_of.h"
#include "platform/calendar.h"

namespace platform {
namespace {

using namespace std::string_literals;

TEST(Text, LenientNumberTakesWhatIsANumberAndNeverFails) {
  const std::pair<std::string, double> cases[] = {
      {"220.5", 220.5}, {"  027.1 ", 27.1}, {".5", 0.5},      {"7.", 7},  {"1.2.3", 1.2},
      {"1 2", 1},       {"12\r", 12},       {"12\0"s, 12},    {"1e3", 1}, {"0x1F", 0},
      {"22O.5", 22},    {"5,7", 5},         {"20260a", 20260}};
  for (const auto& [text, number] : cases) EXPECT_EQ(LenientNumber(text), number) << text;
  for (const char* text : {"", "   ", ".", "-5", "+5", "\t5", "inf", "nan", "@@.@", "\xFF\x39"}) {
    EXPECT_EQ(LenientNumber(text), 0) << text;
  }
  EXPECT_NO_THROW(LenientNumber(std::string(5000, '9')));
}

TEST(Text, RoundingGoesToTheEvenNeighbourAndKnowsItsRange) {
  const std::pair<double, int> cases[] = {{0.5, 0},    {1.5, 2},         {2.5, 2},
                                          {-0.5, 0},   {-1.5, -2},       {-2.5, -2},
                                          {2.5001, 3}, {32767.4, 32767}, {-32768.5, -32768}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundToInt16(value), rounded) << value;
  for (double value : {32767.5, -32768.6, 1e300, -1e300, double{INFINITY}, double{NAN}}) {
    EXPECT_EQ(ErrorOf([&] { RoundToInt16(value); }), errors::kOverflow) << value;
  }
}

TEST(Text, ASingleShowsSevenDigitsAndNoMore) {
  const std::pair<float, const char*> cases[] = {
      {0.0F, "0"},       {220.5F, "220.5"},    {0.1F, "0.1"},   {27.1F, "27.1"},
      {-3.25F, "-3.25"}, {1234567, "1234567"}, {1e7F, "1E+07"}, {1.0F / 3, "0.3333333"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(SingleText(value), text);
  for (float value : {27.1F, 1e7F, 0.1F, -3.25F}) {
    EXPECT_EQ(SingleAsShown(value), std::stod(SingleText(value)));
  }
}

TEST(Text, CuttingTakesBlanksAloneAndStaysInside) {
  EXPECT_EQ(Trim("  a b  ") + Trim("    ") + TrimRight(""), "a b");
  EXPECT_EQ(TrimRight("  a \r  "), "  a \r");
  EXPECT_EQ(TrimRight("a\0  "s), "a\0"s);
  EXPECT_EQ(Middle("(220.5", 2, 4), "220.");
  EXPECT_EQ(Middle("(22", 2, 5), "22");
  EXPECT_EQ(Middle("(", 2, 5), "");
  EXPECT_EQ(ZeroPadded(7, 2) + ZeroPadded(123, 2), "07123");
  EXPECT_TRUE(SameIgnoringCase("Event.MDB", "eVENT.mdb"));
  EXPECT_FALSE(SameIgnoringCase("[", "{") || SameIgnoringCase("ab", "abc"));
}

TEST(Calendar, CenturiesAreLeapYearsOnlyByFourHundred) {
  EXPECT_EQ(DaysInMonth(2000, 2) + DaysInMonth(2024, 2), 29 + 29);
  EXPECT_EQ(DaysInMonth(2100, 2) + DaysInMonth(2026, 2), 28 + 28);
}

}  // namespace
}  // namespace platform
