// mailto against a real mail server: what arrives, what never leaves without protection, and what
// the log says.

#include <chrono>
#include <filesystem>
#include <vector>

#include "sidecars/sidecar_fixture.h"

namespace varek::test {

namespace {

namespace fs = std::filesystem;

const std::string kHeaders =
    "Date From To Subject Message-ID MIME-Version Content-Type Auto-Submitted "
    "Content-Transfer-Encoding\n";

class MailTest : public SenderTest {
 protected:
  MailTest() : SenderTest("mailto") {}

  void Serve(const std::string& words) { SenderTest::Serve("mail_server.py", words); }

  std::string MailLine(const std::string& subject, const std::string& body,
                       const std::string& mode = "F") const {
    return Line(
        {Address(), "UPS", "ups@example.org", "Bob", "bob@example.org", subject, body, mode, "1"});
  }
};

}  // namespace

TEST_F(MailTest, ArrivesUnharmed) {
  Serve("");
  std::string chinese, lines;
  for (int i = 0; i < 20; ++i) chinese += "市電中斷，電池供電🔋";
  for (int i = 0; i < 1667; ++i) lines += ".\r\n..x\r\nUPS on battery\r\n";
  struct Case {
    std::string sender, recipient, subject, body;
    std::string senderRead, recipientRead, subjectRead, encoding, bodyRead;
  };
  const std::vector<Case> cases{
      {"UPS", "Bob", "Mains failed", "a\nb\rc\r\nd",  //
       "UPS", "Bob", "Mains failed", "7bit", "a\r\nb\r\nc\r\nd\r\n"},
      {"電力監控", "Zoë \"Z\" Müller, Ops", chinese, chinese,  //
       "電力監控", "Zoë \"Z\" Müller, Ops", chinese, "base64", chinese + "\r\n"},
      {"O'Neil, \"U\\P\" <x@y>", "", "=?UTF-8?Q?plain?=", lines,  //
       "O'Neil, \"U\\P\" <x@y>", "", "=?UTF-8?Q?plain?=", "7bit", lines},
      {"a[b", "]", "x\r\nBcc: eve@example.org", "市电\r\n\r\n.\r\nQUIT\r\n",  //
       "a[b", "]", "x  Bcc: eve@example.org", "base64", "市电\r\n\r\n.\r\nQUIT\r\n"},
      {"", "", "long", std::string(1200, 'l'),  //
       "", "", "long", "base64", std::string(1200, 'l') + "\r\n"},
      {"\xE5\xB8", "x\r\n\r\nbody", "\xFFz", "\xC0\xAF" + std::string(2000, 'l'),  //
       "��", "x body", "�z", "base64", "��" + std::string(2000, 'l') + "\r\n"}};
  int count = 0;
  for (const Case& mail : cases) {
    EXPECT_EQ(Run(Line({" " + Address(), mail.sender, "ups@example.org ", mail.recipient,
                        "bob@example.org", mail.subject, mail.body, "F", "2"})),
              0);
    EXPECT_EQ(Read("mail-" + std::to_string(++count)),
              "ups@example.org to bob@example.org\n" + mail.senderRead + "|ups@example.org\n" +
                  mail.recipientRead + "|bob@example.org\n" + mail.subjectRead + "\n" + kHeaders +
                  mail.encoding + "\nopen\nstranger\nshort\n\n" + mail.bodyRead);
  }
  EXPECT_EQ(LogLines(), count) << Log();
}

TEST_F(MailTest, ProtectsWhatItSends) {
  MakeCertificate();
  const std::string login = "user = varek\npassword = geheim#=\n";
  const std::string trust = "ca = cert.pem\n";
  struct Case {
    std::string server, conf, arrives;  // how it arrives; empty when it must not
  };
  const std::vector<Case> cases{
      {"", "", "open\nstranger"},
      {"starttls", "", "secret\nstranger"},
      {"starttls", "security = none\n", "open\nstranger"},
      {"starttls", "security = starttls\n", ""},
      {"starttls", "security = starttls\n" + trust, "secret\nstranger"},
      {"starttls login", login + trust, "secret\nlogin"},
      {"starttls login", login, ""},
      {"starttls login", "user = varek\npassword = geheim#=2\n" + trust, ""},
      {"login", login + trust, ""},
      {"", "security = starttls\n", ""},
      {"tls login", login + trust + "security = tls\n", "secret\nlogin"},
      {"tls", "security = tls\n", ""}};
  for (const Case& row : cases) {
    Serve(row.server);
    Write("mailto.conf", "wait = 600\n" + row.conf);
    EXPECT_EQ(Run(MailLine("Test", "Text")), row.arrives.empty() ? 1 : 0) << row.conf << Log();
    EXPECT_EQ(Read("mail-1").find("\n" + row.arrives + "\n") != std::string::npos,
              !row.arrives.empty())
        << row.conf << Read("mail-1");
    fs::remove(Path("mail-1"));
  }
  EXPECT_EQ(Log().find("geheim"), std::string::npos) << Log();
}

TEST_F(MailTest, TriesAgainWhatMayMendItselfAndNoAttemptTakesLong) {
  Write("mailto.conf", "wait = 3 3 3\n");
  Serve("late");
  EXPECT_EQ(Run(MailLine("Mains failed", "Text")), 0);
  EXPECT_NE(Log().find("to bob@example.org \"Mains failed\": not sent, next attempt in 3 s: "),
            std::string::npos)
      << Log();
  EXPECT_TRUE(Log().ends_with("to bob@example.org \"Mains failed\": sent\n")) << Log();
  EXPECT_FALSE(fs::exists(Path("mail-2")));

  struct Case {
    std::string server, mode;
    int status;
    long lines;  // the first time one more, since others could read the password
    std::string end;
  };
  const std::vector<Case> cases{
      {"450 451", "F", 0, 4, ": sent\n"},
      {"450 450 450 450", "F", 1, 4, "450 refused by *** here\n"},
      {"550", "F", 1, 1, "550 refused by *** here\n"},
      {"450", "T", 1, 1, "450 refused by *** here\n"},
      {"silent", "F", 1, 4, "given up: "},
      {"dumb", "F", 1, 1, "; it may arrive; the server's last words: 354 "},
      {"clingy", "F", 0, 1, ": sent\n"}};
  std::string reason;
  for (const Case& row : cases) {
    fs::remove(Path("mailto.log"));
    fs::remove(Path("output"));
    Write("mailto.conf", "timeout = 2\nwait = 0 0 0\nsecurity = none\npassword = geheim#=\n");
    Serve(row.server);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Run(MailLine("x", "y", row.mode)), row.status);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4 * row.lines));
    EXPECT_EQ(LogLines(), row.lines) << Log();
    EXPECT_NE(Log().find(row.end), std::string::npos) << Log();
    if (row.mode == "T") reason = Read("output");
    EXPECT_EQ(Read("output").find("電子郵件: 電子郵件未送出。") == 0, row.mode == "T");
  }
  EXPECT_NE(reason.find("450 refused by *** here"), std::string::npos);
  EXPECT_EQ(fs::status(Path("mailto.conf")).permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(MailTest, TheEndOfTheSystemBringsTheLastAttempt) {
  Write("mailto.conf", "wait = 0 600 600\n");
  Write("port", "1");
  EXPECT_EQ(RunAndEnd(MailLine("Mains failed", "secret words")), 1);
  EXPECT_EQ(Read("list"), "./mailto") << "seen by others";
  EXPECT_EQ(LogLines(), 4) << Log();
  EXPECT_NE(Log().find("the system ends, last attempt\n"), std::string::npos);
  EXPECT_NE(Log().find("given up"), std::string::npos);

  Write("mailto.conf", "timeout = 600\nwait = 600\n");
  Serve("silent");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(RunAndEnd(MailLine("Mains failed", "x")), 1);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1 + 5));
  EXPECT_TRUE(Log().ends_with("given up: left unfinished, since the system ends\n")) << Log();
}

TEST_F(MailTest, ATestTellsTheReasonInThePersonsLanguage) {
  Write("port", "1");
  const std::vector<std::pair<std::string, std::string>> cases{
      {MailLine("x", "y", "T"), "無法連線到伺服器。\n"},
      {MailLine("x][", "y", "T"), "其中一段文字含有「][」，訊息無法傳送這些字元。\n"},
      {Line({" ", "", "", "", "", "", "", "T", "1"}), "尚未設定郵件伺服器。\n"}};
  for (const auto& [line, reason] : cases) {
    EXPECT_EQ(Run(line), 1);
    EXPECT_TRUE(Read("output").ends_with("未送出。\n\n" + reason)) << Read("output");
  }
  Write("mailto.conf", "\ngeheim\n");
  EXPECT_EQ(Run(MailLine("x", "y", "T")), 1);
  EXPECT_TRUE(Read("output").ends_with("缺少的設定：\nmailto.conf:2\n")) << Read("output");
}

TEST_F(MailTest, RefusesWhatItCannotUse) {
  const auto fields = [](const std::string& server, const std::string& recipient) {
    return Line({server, "geheim", "ups@x.org", "", recipient, "s", "b", "F", "0"});
  };
  const std::string good = fields("127.0.0.1:1", "bob@x.org");
  const std::string address = "no plain name@domain", server = "mail server's";
  struct Case {
    std::optional<std::string> line;
    std::string conf, words;
  };
  const std::vector<Case> cases{
      {std::nullopt, "", "no bracket at its start"},
      {"[geheim", "", "no bracket at its end"},
      {"[geheim][F][0]", "", "3 fields instead of 9"},
      {good + "[x]", "", "10 fields instead of 9"},
      {Line({"a", "b", "c", "d", "e", "f", "geheim", "X", "0"}), "", "neither T nor F"},
      {Line({"a", "b", "c", "d", "e", "f", "geheim", "F", "3"}), "", "none of 0, 1 and 2"},
      {fields(" ", "bob@x.org"), "", "no mail server is set"},
      {fields("host:70000", "bob@x.org"), "", server},
      {fields("[::1", "bob@x.org"), "", server},
      {fields("host", ""), "", "no recipient's address is set"},
      {fields("host", "a b@x.org"), "", address},
      {fields("host", "bob@x.org\r\nDATA"), "", address},
      {fields("host", "bob"), "", address},
      {fields("host", std::string(100'000, 'b') + "@x.org"), "", address},
      {fields("[::1]:1", "bob@x.org"), "wait =\ntimeout = 5", "given up"},
      {good, "wait = 0 x", "mailto.conf, line 1: wait: a whole number from 0 to 3600 is needed"},
      {good, "# x\n\nsecurity = geheim\n", "mailto.conf, line 3: security: one of"},
      {good, "geheim\n", "mailto.conf, line 1: neither a section nor key = value"},
      {good, "pasword = geheim\n", "mailto.conf, line 1: there is no such key"}};
  for (const Case& row : cases) {
    Write("mailto.conf", row.conf);
    EXPECT_EQ(Run(row.line), 1);
    EXPECT_NE(Log().find(row.words), std::string::npos) << row.words << "\n" << Log();
    EXPECT_EQ(LogLines(), 1) << Log();
    EXPECT_EQ(Log().find("geheim"), std::string::npos) << Log();
    fs::remove(Path("mailto.log"));
  }
  Write("mailto.log", std::string(1 << 20, 'x'));
  EXPECT_EQ(Run("[\n\n\x1b]"), 1);
  EXPECT_EQ(fs::file_size(Path("mailto.log.old")), 1U << 20);
  fs::permissions(Path("mailto.log"), fs::perms(0644));
  EXPECT_EQ(Run("["), 1);
  EXPECT_EQ(LogLines(), 2);
  EXPECT_EQ(fs::status(Path("mailto.log")).permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
  fs::remove(Path("mailto.log"));
  fs::create_directory(Path("mailto.log"));
  EXPECT_EQ(Run("[x]"), 1);
  EXPECT_NE(Read("output").find("1 fields instead of 9"), std::string::npos) << Read("output");
}

}  // namespace varek::test
