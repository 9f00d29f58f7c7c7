// The configuration file: 53 lines, read and written symmetrically.

#include "core/configuration.h"

#include <stdlib.h>
#include <fstream>
#include <iterator>
#include <sstream>

#include "core/data_center.h"
#include "core/link_record.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "support/monitor_fixture.h"

namespace varek {
namespace {

using Lines = std::vector<std::string>;

/// A file in which every line differs from its start value.
Lines FullFile() {
  std::istringstream first(
      "F 5 7 9 C 2080 T login control T 2 TFTFTFTFTFTF mail.example From from@example To "
      "to@example");
  Lines lines{std::istream_iterator<std::string>(first), {}};
  lines.push_back("Subject 主旨");
  for (int i = 0; i < 12; ++i) lines.push_back("mail text " + std::to_string(i));
  for (const char* line : {"FFFFFFFFFFFT", " 1 ", "account", "secret", "886900", "api"}) {
    lines.push_back(line);
  }
  for (int i = 0; i < 12; ++i) lines.push_back("sms 簡訊 " + std::to_string(i));
  for (const char* line : {"11", "12", "13", "14", "TFTFT"}) lines.push_back(line);
  return lines;
}

std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  return text;
}

class ConfigurationTest : public test::MonitorTest {
 protected:
  ConfigurationTest() { setenv("LC_ALL", "C", 1); }

  std::string Path() const { return Folder() + "/config.qmz"; }
  void Write(const std::string& text) const { std::ofstream(Path(), std::ios::binary) << text; }
  std::string Written() const { return platform::ReadWholeFile(Path()); }
};

TEST_F(ConfigurationTest, EveryLineComesBackByteForByte) {
  const std::string file = Joined(FullFile());
  Write(file);
  ReadConfig();
  EXPECT_EQ(Link.LinkType, kSerialLink);
  EXPECT_EQ(Link.MSComm1.CommPort(), 5);
  EXPECT_EQ(DataCenter.settings.UPSShutdownBuffer, 9);
  EXPECT_EQ(DataCenter.settings.WebLanguageFolder, "httpGB232\\");
  EXPECT_EQ(DataCenter.settings.MailEventEnable[2], kSet);
  EXPECT_EQ(DataCenter.settings.MailEventEnable[3], kClear);
  EXPECT_EQ(DataCenter.settings.SmsEventEnable[11], kSet);
  EXPECT_EQ(DataCenter.settings.SmsGateway, 1);
  EXPECT_EQ(DataCenter.settings.SmsApiId, "api");
  EXPECT_EQ(DataCenter.settings.MailEventText[11], "mail text 11");
  EXPECT_TRUE(DataCenter.settings.PowerFailSystemEnable && DataCenter.settings.BatLowSystemEnable &&
              DataCenter.settings.EventPopup);
  EXPECT_FALSE(DataCenter.settings.PowerFailUPSEnable || DataCenter.settings.BatLowUPSEnable);

  ::unlink(Path().c_str());
  WriteConfig();
  EXPECT_EQ(Written(), file);

  std::string ofOtherSystems;
  for (const std::string& line : FullFile()) ofOtherSystems += line + "\r\n";
  Write(ofOtherSystems);
  ReadConfig();
  WriteConfig();
  EXPECT_EQ(Written(), file);
}

TEST_F(ConfigurationTest, OddLinesReadAsToldAndShortListsAsClear) {
  Lines lines = FullFile();
  lines[1] = "800";
  lines[2] = "  4.5x";  // ties go to the even number
  lines[3] = "many";
  lines[4] = "c";
  lines[6] = "true";
  lines[11] = "TT";
  lines[52] = "FT";
  Write(Joined(lines));
  ReadConfig();
  EXPECT_EQ(Link.LinkType, kUsbLink);
  EXPECT_EQ(Link.PortNumber, 800);
  EXPECT_EQ(DataCenter.settings.SystemShutdownBuffer, 4);
  EXPECT_EQ(DataCenter.settings.UPSShutdownBuffer, 0);
  EXPECT_FALSE(DataCenter.settings.UseCelsius || DataCenter.settings.WebEnabled);
  EXPECT_TRUE(DataCenter.settings.MailEventEnable[1] && DataCenter.settings.PowerFailUPSEnable);
  EXPECT_FALSE(DataCenter.settings.MailEventEnable[4] || DataCenter.settings.EventPopup);
}

TEST_F(ConfigurationTest, AShortFileOrALargeNumberFailsAndKeepsWhatWasRead) {
  Lines lines = FullFile();
  lines.pop_back();
  Write(Joined(lines));
  try {
    ReadConfig();
    FAIL() << "a file of 52 lines was taken";
  } catch (const platform::RuntimeError& error) {
    EXPECT_EQ(error.Number(), 62);
  }
  EXPECT_EQ(DataCenter.settings.BatLowUPSDelay, 14);
  lines[5] = "40000";
  Write(Joined(lines));
  EXPECT_THROW(ReadConfig(), platform::RuntimeError);
}

TEST_F(ConfigurationTest, AMissingFileMeansASearchAndTheFirstValues) {
  ReadConfig();
  EXPECT_EQ(messages, Lines{"LOAD CONFIG ERROR"});
  WriteConfig();
  EXPECT_EQ(Written().substr(0, 17), "T\n0\n5\n1\nC\n1888\nT\n");
}

TEST_F(ConfigurationTest, NoTextMovesTheLinesBehindItAndAFileThatHasSuchATextIsTold) {
  Write(Joined(FullFile()));
  std::ofstream(Path() + ".new") << "login";  // A killed writer has left it.
  ReadConfig();
  EXPECT_FALSE(platform::IsFile(Path() + ".new"));
  EXPECT_FALSE(ConfigWasTooLong());
  DataCenter.settings.WebLoginPassword = std::string("a\r\nb\0c", 6);
  WriteConfig();
  Lines lines = FullFile();
  lines[7] = "a  b c";
  EXPECT_EQ(Written(), Joined(lines));

  lines.insert(lines.begin() + 20, "second half");
  Write(Joined(lines));
  ReadConfig();
  EXPECT_TRUE(ConfigWasTooLong());
  EXPECT_EQ(DataCenter.settings.MailEventText[2], "second half");
}

TEST_F(ConfigurationTest, AFirstStartFollowsTheSystemsLanguageAndALaterOneTheFile) {
  struct Case {
    const char *locale, *search;
    int language;
  };
  for (const Case& c : {Case{"zh_TW.UTF-8", "T", 1},
                        {"zh_CN", "T", 2},
                        {"ja_JP.UTF-8", "T", 0},
                        {"zh_TW.UTF-8", "F", 2}}) {
    setenv("LC_ALL", c.locale, 1);
    Lines lines = FullFile();
    lines[0] = c.search;
    Write(Joined(lines));
    ReadConfig();
    EXPECT_EQ(DataCenter.settings.LanguageIndex, c.language) << c.locale << " " << c.search;
  }
}

}  // namespace
}  // namespace varek
