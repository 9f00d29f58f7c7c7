// Replies against the live state, column by column, and what broken ones do.

#include "link/protocol.h"

#include <gtest/gtest.h>

#include <random>

#include "core/data_center.h"

namespace varek {
namespace {

// Worked example; the columns are those of docs/protocol.md.
//                       in    fault out   ld  freq batt temp flags
const std::string kStatus = "(208.4 140.0 208.4 034 59.9 2.05 35.0 00110000\r";
const std::string kRating = "#220.0 047 024.0 50.0\r";
//                                  company         model      version
const std::string kFixedIdentity = "#ACME POWER LTD  UPS 1000   V01.25    \r";

class ProtocolTest : public testing::Test {
 protected:
  ProtocolTest() {
    DataCenter = DataCenterRecord();
    DataCenter.IsConnect = kSet;
  }
};

TEST_F(ProtocolTest, StatusLineFillsEveryColumn) {
  ASSERT_EQ(kStatus.size(), kStatusLength);
  ParseSerialReply(kStatus);
  EXPECT_FLOAT_EQ(DataCenter.readings.InputVoltage, 208.4F);
  EXPECT_FLOAT_EQ(DataCenter.readings.InputFaultVoltage, 140.0F);
  EXPECT_FLOAT_EQ(DataCenter.readings.OutputVoltage, 208.4F);
  EXPECT_EQ(DataCenter.readings.LoadPercent, 34);
  EXPECT_EQ(GetFrequency(), "59.9");
  EXPECT_FLOAT_EQ(DataCenter.readings.BatteryVoltage, 0);  // forced by the fault
  EXPECT_FLOAT_EQ(DataCenter.readings.Temperature, 35.0F);
  EXPECT_TRUE(DataCenter.flags.Bypass && DataCenter.flags.UPSFailed);
  EXPECT_FALSE(DataCenter.flags.Utility || DataCenter.flags.BatLow || DataCenter.flags.UPStype ||
               DataCenter.flags.TestProgress || DataCenter.flags.ShutdownActive ||
               DataCenter.flags.Beeper);
}

TEST_F(ProtocolTest, EachFlagHasItsOwnColumn) {
  Flag StatusFlags::*const flags[] = {&StatusFlags::Utility,        &StatusFlags::BatLow,
                                      &StatusFlags::Bypass,         &StatusFlags::UPSFailed,
                                      &StatusFlags::UPStype,        &StatusFlags::TestProgress,
                                      &StatusFlags::ShutdownActive, &StatusFlags::Beeper};
  for (size_t set = 0; set < 8; ++set) {
    std::string line = "(208.4 140.0 208.4 034 59.9 2.05 35.0 00000000\r";
    line[38 + set] = '1';
    EXPECT_EQ(ParseStatus(line), set == 3);
    for (size_t i = 0; i < 8; ++i) EXPECT_EQ(DataCenter.flags.*flags[i], i == set ? kSet : kClear);
  }
}

TEST_F(ProtocolTest, GarbledFieldsReadZeroAndGarbledFlagsClear) {
  ParseSerialReply("(2x8.4 140.0 -99.9 3.5 ab.c 2.05 9.9. 9 A.0@01\r");
  EXPECT_FLOAT_EQ(DataCenter.readings.InputVoltage, 2);
  EXPECT_FLOAT_EQ(DataCenter.readings.OutputVoltage, 0);
  EXPECT_EQ(DataCenter.readings.LoadPercent, 4);  // a half goes to the even neighbour
  EXPECT_FLOAT_EQ(DataCenter.readings.Frequency, 0);
  EXPECT_FLOAT_EQ(DataCenter.readings.Temperature, 9.9F);
  EXPECT_TRUE(DataCenter.flags.Utility && DataCenter.flags.Beeper);
  EXPECT_FALSE(DataCenter.flags.BatLow || DataCenter.flags.Bypass || DataCenter.flags.UPSFailed ||
               DataCenter.flags.UPStype);
}

TEST_F(ProtocolTest, RatingIsToldFromIdentityByItsLength) {
  ASSERT_EQ(kRating.size(), kSerialRatingLength);
  ParseSerialReply(kRating);
  EXPECT_FLOAT_EQ(DataCenter.ratings.RatingVoltage, 220);
  EXPECT_EQ(DataCenter.ratings.RatingCurrent, 47);
  EXPECT_FLOAT_EQ(DataCenter.ratings.RatingBatteryVoltage, 24);
  EXPECT_FLOAT_EQ(DataCenter.ratings.RatingFrequency, 50);
  EXPECT_EQ(DataCenter.identity.UPSCompany, "");
}

TEST_F(ProtocolTest, IdentityInItsTwoForms) {
  struct Case {
    std::string line;
    const char *company, *model, *version;
  };
  const Case cases[] = {
      {kFixedIdentity, "ACME POWER LTD", "UPS 1000", "V01.25"},
      {"#ACME M10 V1.2\r", "ACME", "M10", "V1.2"},
      {"#ACME    M10    V1.2 b \r", "ACME", "M10", "V1.2 b"},
      {"#ACME M10\r", "ACME", "before", "M10"},
      {"#ACME\r", "before", "before", "ACME"},
      {"#\r", "before", "before", ""},
      {"#ACME M10 \r", "ACME", "M10", ""},
  };
  for (const Case& c : cases) {
    DataCenter.identity.UPSCompany = DataCenter.identity.UPSModel = DataCenter.identity.UPSVersion =
        "before";
    ParseSerialReply(c.line);
    EXPECT_EQ(DataCenter.identity.UPSCompany, c.company) << c.line;
    EXPECT_EQ(DataCenter.identity.UPSModel, c.model) << c.line;
    EXPECT_EQ(DataCenter.identity.UPSVersion, c.version) << c.line;
  }
}

TEST_F(ProtocolTest, CapabilitiesFollowVersionTypeAndLink) {
  struct Case {
    const char* line;
    Flag connected, offLine;
    bool temperature, load;
  };
  const Case cases[] = {
      {"#ACME M10 V1.2\r", kSet, kClear, true, true},
      {"#ACME M10 V1.2\r", kSet, kSet, false, true},
      {"#ACME M10 V1.2\r", kClear, kClear, false, false},
      {"#ACME M10 QZ0123\r", kSet, kClear, false, false},
      {"#ACME M10 \r", kSet, kClear, false, false},
  };
  for (const Case& c : cases) {
    DataCenter.IsConnect = c.connected;
    DataCenter.flags.UPStype = c.offLine;
    ParseSerialReply(c.line);
    EXPECT_EQ(DataCenter.HasTemperature != 0, c.temperature) << c.line;
    EXPECT_EQ(DataCenter.HasLoad != 0, c.load) << c.line;
  }
}

TEST_F(ProtocolTest, LinesOfNoShapeChangeNothing) {
  ParseSerialReply(kStatus);
  for (const std::string& line :
       {std::string(), std::string("\r"), std::string(46, '('), kStatus.substr(0, 46),
        kStatus + "\r", " " + kStatus.substr(1), std::string("NAK\r"), std::string(47, '\0'),
        "[" + kStatus.substr(1)}) {
    ParseSerialReply(line);
  }
  EXPECT_FLOAT_EQ(DataCenter.readings.InputVoltage, 208.4F);
  EXPECT_EQ(DataCenter.identity.UPSVersion, "");
}

TEST_F(ProtocolTest, NoBytesCanHarmTheParsers) {
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    std::string line(random() % 64, ' ');
    for (char& c : line) c = static_cast<char>(random() % 4 ? random() : ' ');
    if (round % 2) line = (round % 4 == 1 ? "#" : "(") + line + "\r";
    ParseSerialReply(line);
    if (!line.empty()) ParseIdentification(line);
    ParseStatus(line);
    ParseRating(line);
  }
}

}  // namespace
}  // namespace varek
