// The template engine: every key on one unit's values, and what becomes of odd pages.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/data_center.h"
#include "platform/errors/runtime_error.h"
#include "records/files/databases.h"
#include "support/monitor_fixture.h"
#include "texts/language.h"
#include "web/pages/page_files.h"
#include "web/server/template_engine.h"
#include "web/session/session.h"

namespace varek {
namespace {

class TemplateTest : public test::MonitorTest {
 protected:
  TemplateTest() {
    OpenDatabases();
    SetLanguageIndex(0);
    std::filesystem::create_directory(Folder() + "/httpEnglish");
    Loadlanguage(0);
    // Input, at the last fault, output; load, frequency, battery, temperature.
    DataCenter.readings = {229.9F, 0, 230, 61, 49.9F, 2.1F, 27.1F};
    DataCenter.ratings = {.RatingVoltage = 230, .RatingCurrent = 5, .RatingFrequency = 50};
    DataCenter.settings.UPSShutdownBuffer = 3;
    DataCenter.identity.UPSCompany = "Maker";
    DataCenter.identity.UPSVersion = std::string("V1\r\0\0", 5);  // as it comes over USB
    DataCenter.settings.UseCelsius = DataCenter.HasLoad = DataCenter.HasTemperature = kSet;
    DataCenter.flags.Utility = DataCenter.flags.Beeper = kSet;
    DataCenter.UPSStage = 7;
  }

  std::string Expand(std::string text) {
    ExpandTemplate(text, values);
    return text;
  }

  PageValues values;
};

TEST_F(TemplateTest, EveryKeyHasItsText) {
  LoginKey = "key";
  values.ChartStartTime = "11:00:00";
  values.FiveEventText[4] = "oldest";
  values.FiveEventTime[0] = "newest";
  const std::pair<const char*, std::string> cases[] = {
      {"<%GETTIME%><%GETUPSSTAGE%>", "12:00:00" + StageText[7]},
      {"<%GETINPUTVOLTAGE%>/<%GETOUTPUTVOLTAGE%>", "229.9/230"},
      {"<%VARUPStype%><%VARUtility%><%VARBypass%><%VARIsConnect%><%VARBatLow%>", "01000"},
      {"<%VARUPSFailed%><%VARTestProgress%><%VARShutdownActive%><%VARBeeper%>", "0001"},
      {"<%GETTEMPLATER%> <%TEMPP%> <%DelayShuntDownTime%>", "27.1 C 18 3"},
      {"<%GETBATVOLTAHE%> <%BATP%>", "72 60"},
      {"<%GETFrequency%> <%HZP%>", "49.9 49"},
      {"<%GETVarLoad%> <%LOADP%>", "61 50"},
      {"<%GETUPSMODE%>", "On Line "},
      {"<%GETINPOWERON%>", "<font color='#FF0000'>" + LangText[12] + "</font> "},
      {"<%GETCompanyName%><%GETUPSModel%><%GETUPSVersion%>.", "MakerV1."},
      {"<%GETBatteryOKFileName%><%GetTypeName%>", "\"batteryOKTest.gif\"\"OnFail.gif\""},
      {"<%GETRatingVoltage%> <%GETRatingCurrent%> <%GETRatingFrequebcy%>", "230 5 50"},
      {"<%GETMAXVOL%> <%INVOLP%> <%OUTVOLP%>", "250 91 92"},
      {"<%Event5%><%EventTime1%><%GETSTRTIME%><%GETKEY%>", "oldestnewest11:00:00key"},
      {"a<%NOSUCH%>b<%getkey%>c", "abc"},
      {"<%GetLoadOutL%>x<%GETVarLoad%>y<%GetLoadOutR%>", "x61y"},
  };
  for (const auto& [page, text] : cases) EXPECT_EQ(Expand(page), text) << page;
}

TEST_F(TemplateTest, OtherUnitsReadOtherwise) {
  DataCenter.flags.UPStype = DataCenter.flags.Bypass = kSet;
  DataCenter.HasLoad = DataCenter.HasTemperature = DataCenter.flags.Utility = kClear;
  EXPECT_EQ(Expand("<%GetLoadOutL%>x<%GETVarLoad%>y<%GetLoadOutR%>"), "<!--x<!--y-->");
  EXPECT_EQ(Expand("<%TEMPP%>"), "") << "no key before it";
  EXPECT_EQ(Expand("<%GETUPSMODE%><%GetTypeName%>"), "OFF-Line Buck mode\"OffPass.gif\"");
  EXPECT_EQ(Expand("<%GETINPOWERON%>"), LangText[11]);
  DataCenter.HasTemperature = kSet;
  DataCenter.settings.UseCelsius = kClear;
  EXPECT_EQ(Expand("<%GETTEMPLATER%> <%TEMPP%>"), "80.7 F 53");
  const std::pair<float, const char*> ratings[] = {{150, "150"}, {250, "250"}, {250.1F, "420"}};
  for (const auto& [rating, scale] : ratings) {
    DataCenter.ratings.RatingVoltage = rating;
    EXPECT_EQ(Expand("<%GETMAXVOL%>"), scale);
  }
}

TEST_F(TemplateTest, SideEffectsGiveNoText) {
  std::ofstream(Folder() + "/httpEnglish/page.htm") << "<%DRAWBETLINE%><%Do5EVENT%><%Event1%>|";
  values.FiveEventText[0] = "stale";
  EXPECT_EQ(ReadPage(WebPath("page.htm"), values), "|");
  EXPECT_TRUE(std::filesystem::exists(Folder() + "/httpEnglish/temperature.bmp"));
  const std::string keys = Expand("<%GETCONTROLKEY%><%GETCONTROLKEY%>");
  EXPECT_NE(keys.substr(0, 31), keys.substr(31));
  EXPECT_EQ(keys.substr(31), ControlKey);
}

TEST_F(TemplateTest, AnErrorLeavesThePageAsFarAsItGot) {
  DataCenter.identity.UPSModel = "ab<%GETKEY%>";  // Found from its third character on.
  LoginKey = "key";
  EXPECT_EQ(Expand("<%GETUPSModel%>"), "abkey");
  DataCenter.identity.UPSModel = "ab<%GETUPSModel%>";
  EXPECT_THROW(Expand("<%GETUPSModel%>"), platform::RuntimeError) << "and not for ever";
  for (const char* rest : {"<%INVOLP%><%GETKEY%>", "<%GETKEY"}) {
    std::string text = std::string("<%GETKEY%>") + rest;
    EXPECT_THROW(ExpandTemplate(text, values), platform::RuntimeError);
    EXPECT_EQ(text, std::string("key") + rest);
    std::ofstream(Folder() + "/httpEnglish/page.htm") << text;
    EXPECT_EQ(ReadPage(WebPath("page.htm"), values), text) << "the reader goes on";
  }
}

}  // namespace
}  // namespace varek
