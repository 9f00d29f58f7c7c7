// SMSTO against an SMS service on loopback: what the service is given and how its replies are read.

#include <filesystem>
#include <regex>
#include <vector>

#include "sidecars/sidecar_fixture.h"

namespace varek::test {

namespace {

namespace fs = std::filesystem;

const std::string kPassword = "ge heim&=%é";

class SmsTest : public SenderTest {
 protected:
  SmsTest() : SenderTest("SMSTO") {}

  /// The gateways that the program comes with, but on loopback and without waits.
  void Serve(const std::string& words = "") {
    SenderTest::Serve("sms_service.py", words);
    std::string conf = std::regex_replace(
        Read("SMSTO.conf"), std::regex("address = https?://[^/]*"),
        std::string("address = http") + (words.empty() ? "" : "s") + "://" + Address());
    Write("SMSTO.conf",
          std::regex_replace(conf, std::regex("wait = .*"), "wait = 0 0 0\ntimeout = 1"));
  }

  void SetUp() override { fs::copy_file(ASSETS "/SMSTO.conf", Path("SMSTO.conf")); }

  static std::string SmsLine(const std::string& gateway, const std::string& text,
                             const std::string& mode = "F") {
    return Line({gateway, " me+you@x ", kPassword + " ", "+886 912 ", text, "id/7 ", mode, "2"});
  }
};

}  // namespace

TEST_F(SmsTest, TheServiceIsGivenTheParameters) {
  Serve();
  struct Case {
    std::string gateway, text, reply, request;
  };
  const std::string first =
      "POST /API21/HTTP/sendSMS.ashx\nUID: me+you@x\nPWD: " + kPassword + "\nSB: \nMSG: ";
  const std::string second =
      "GET /http/sendmsg\napi_id: id/7\nuser: me+you@x\npassword: " + kPassword +
      "\nto: +886 912\ntext: ";
  const std::vector<Case> cases{{"0", "市电 {password}&[", "79.0,1,1.0,0,b1",
                                 first + "市电 {password}&[\nDEST: +886 912\nST: \n"},
                                {"1", "Zoë: 50% & more", "ID: 5", second + "Zoë: 50% & more\n"},
                                {"1", "電🔋", "ID: 5", second + "96FBD83DDD0B\nunicode: 1\n"}};
  int count = 0;
  for (const Case& row : cases) {
    Write("reply-" + std::to_string(++count), "200\n" + row.reply);
    EXPECT_EQ(Run(SmsLine(row.gateway, row.text)), 0) << Log();
    EXPECT_EQ(Read("requests"), row.request);
    fs::remove(Path("requests"));
  }
  EXPECT_NE(Log().find("to +886 912 by every8d: sent\n"), std::string::npos) << Log();
  EXPECT_EQ(LogLines(), count) << Log();
}

TEST_F(SmsTest, RepliesAreJudged) {
  struct Case {
    std::string gateway, mode;
    std::vector<std::string> replies;
    int status;
    std::string log;  // the end of its last line
  };
  const std::string huge = std::string(300'000, 'x');
  const std::vector<Case> cases{
      {"0", "F", {"200\n-300,x " + kPassword + "\n" + kPassword}, 1, "HTTP 200: -300,x ***\n"},
      {"1", "F", {"200\nERR: 001, ge%20heim%26%3D%25%C3%A9"}, 1, "HTTP 200: ERR: 001, ***\n"},
      {"0", "F", {"503\noops", "429\n", "200\n1"}, 0, ": sent\n"},
      {"0", "F", {"429\n", "503\n", "503\n", "503\n!" + kPassword}, 1, "HTTP 503: !***\n"},
      {"0", "F", {"504\n"}, 1, "given up: HTTP 504: \n"},
      {"0", "F", {"0\n"}, 1, "; it may have been sent\n"},
      {"0", "F", {"302\n1"}, 1, "given up: HTTP 302: 1\n"},
      {"1", "F", {"200\nID: " + huge}, 0, ": sent\n"},
      {"1", "F", {"200\n\r\n\x1b\xff" + huge}, 1, "xxx...\n"},
      {"1", "F", {"200\n" + std::string(1011, '\n') + "ERR: " + kPassword}, 1, "ERR: ***\n"},
      {"1", "T", {"500\nbusy"}, 1, "given up: HTTP 500: busy\n"}};
  for (const Case& row : cases) {
    fs::remove(Path("SMSTO.log"));
    fs::remove(Path("requests"));
    Serve();
    for (size_t i = 0; i < row.replies.size(); ++i) {
      Write("reply-" + std::to_string(i + 1), row.replies[i]);
    }
    EXPECT_EQ(Run(SmsLine(row.gateway, "x", row.mode)), row.status);
    EXPECT_EQ(LogLines(), static_cast<long>(row.replies.size())) << Log();
    EXPECT_TRUE(Log().ends_with(row.log)) << Log();
    EXPECT_EQ(Log().find("heim"), std::string::npos) << Log();
  }
  EXPECT_EQ(Read("output"), "短信: 短信未发送。\n\n服务器的回应：\nHTTP 500: busy\n");
}

TEST_F(SmsTest, RefusesWhatItCannotUse) {
  MakeCertificate();
  Serve("tls");
  EXPECT_EQ(Run(SmsLine("0", "x")), 1);
  EXPECT_NE(Log().find("given up: SSL certificate problem"), std::string::npos) << Log();
  EXPECT_EQ(LogLines(), 1) << Log();
  EXPECT_EQ(Run(SmsLine("2", "x")), 1);
  EXPECT_NE(Log().find("no gateway of this number"), std::string::npos) << Log();
  const std::string start = "[0]\naddress = http://127.0.0.1:1/\n";
  const std::vector<std::pair<std::string, std::string>> cases{
      {start, "section 0: good is missing"},
      {"[0]\ngood = x\n", "section 0: address is missing"},
      {"[0]\naddress = file:///etc/passwd\n", "line 2: address: an http or https address"},
      {start + "good = (\n", "line 3: good: no regular expression"},
      {start + "parameter = a {pasword}\n", "line 3: parameter: there is no such placeholder"},
      {start + "parameter = a {text\n", "line 3: parameter: a placeholder does not end"},
      {start + "method = PUT\n", "line 3: method: POST or GET is needed"},
      {"[0\n", "line 1: a section's name ends with a bracket"}};
  for (const auto& [conf, words] : cases) {
    Write("SMSTO.conf", conf);
    EXPECT_EQ(Run(SmsLine("0", "x")), 1);
    EXPECT_NE(Log().find(words), std::string::npos) << words << "\n" << Log();
  }
  EXPECT_EQ(Log().find("heim"), std::string::npos) << Log();
}

}  // namespace varek::test
