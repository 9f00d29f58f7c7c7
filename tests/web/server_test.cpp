// The console's server over real connections, with clients of every bad habit.

#include "core/debug_lines.h"
#include "web/server/http_server.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <random>

#include "core/data_center.h"
#include "core/error_list.h"
#include "core/forms.h"
#include "core/link_record.h"
#include "platform/system/paths.h"
#include "platform/time/events.h"
#include "platform/time/timers.h"
#include "records/files/databases.h"
#include "support/monitor_fixture.h"
#include "support/serial_line.h"
#include "texts/language.h"
#include "web/pages/page_files.h"
#include "web/server/web_console.h"

namespace varek {
namespace {

using test::PumpUntil;

const std::string kHtml =
    "HTTP/1.1 200 OK\r\nCache-Control: private\r\nContent-Type: text/html;\r\n"
    "Pragma: no -cache\r\n\r\n";
const std::string kGif =
    "HTTP/1.0 200 OK\r\nServer: Web Server 1.0\r\nDate: Thu, 10 May 2001\r\n"
    "23:28:00 +0800 (CST)\r\nmedia-type: image/gif\r\nMIME-Version: 1.0\r\n\r\n";
const std::string kBmp =
    "HTTP/1.1 200 OK\r\nDate: Sat, 10 Jun 2006\r\n11:01:58 GMT\r\nServer:\r\n"
    "SovranoWebServer/1.1.5\r\nExpires: Sat, 10 Jun 2006\r\n11:01:58 GMT\r\n"
    "Pragma: no -cache\r\nmedia-type: image/x-MS-bmp\r\nPragma: no -cache\r\n"
    "MIME-Version: 1.0\r\n\r\n";
const std::string kBad =
    "HTTP/1.1 400 Bad Request\r\nDate: Wed, 14 Jun 2006 09:45:28 GMT\r\n"
    "Connection:Close\r\nContent-Type: text/html\r\n\r\n";
const std::string kLoginPage = kHtml + "login\r\n";

/// A browser of the plainest kind: raw bytes over one connection to 127.0.0.1.
class WebClient final {
 public:
  explicit WebClient(int port, const std::string& from = "127.0.0.1")
      : fd_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    const sockaddr_in own = Address(from, 0);
    const sockaddr_in server = Address("127.0.0.1", port);
    bind(fd_, reinterpret_cast<const sockaddr*>(&own), sizeof own);
    connect(fd_, reinterpret_cast<const sockaddr*>(&server), sizeof server);
    fcntl(fd_, F_SETFL, O_NONBLOCK);
  }
  ~WebClient() { close(fd_); }
  WebClient(const WebClient&) = delete;
  WebClient& operator=(const WebClient&) = delete;

  /// Pumps until all has left or the other end takes no more.
  void Send(const std::string& bytes) const {
    size_t sent = 0;
    PumpUntil([&] {
      const ssize_t count = send(fd_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
      if (count > 0) sent += static_cast<size_t>(count);
      return (count < 0 && errno != EAGAIN) || sent == bytes.size();
    });
  }
  std::string ReadAll() const {
    std::string all;
    PumpUntil([&] {
      char bytes[65536];
      ssize_t count = 0;
      while ((count = recv(fd_, bytes, sizeof bytes, 0)) > 0)
        all.append(bytes, static_cast<size_t>(count));
      return count == 0 || errno != EAGAIN;
    });
    return all;
  }
  std::string Ask(const std::string& request) const {
    Send(request);
    return ReadAll();
  }
  /// True when neither a byte nor the end has come.
  bool IsSilent() const {
    pollfd ready{fd_, POLLIN, 0};
    return ::poll(&ready, 1, 0) == 0;
  }
  void EndSending() const { shutdown(fd_, SHUT_WR); }
  void Vanish() {
    const linger abort{1, 0};
    setsockopt(fd_, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
    close(std::exchange(fd_, -1));
  }

 private:
  static sockaddr_in Address(const std::string& host, int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    inet_pton(AF_INET, host.c_str(), &address.sin_addr);
    return address;
  }

  int fd_;
};

class ServerTest : public test::MonitorTest {
 protected:
  ServerTest() {
    OpenDatabases();
    Loadlanguage(0);
    SetLanguageIndex(0);
    std::filesystem::create_directory(Folder() + "/httpEnglish");
    Write("login.htm", "login");
    Write("index.htm", "<%GETUPSModel%>!");
    DataCenter.identity.UPSModel = "Model";
    DataCenter.settings.WebLoginPassword = "secret";
    DataCenter.settings.WebPort = 0;
    LoggedInIP.clear();
    StartWebConsole();
  }
  ~ServerTest() override {
    OnDebugLinesChanged(nullptr);
    End();
  }

  static void End() {
    DataCenter.ExitInProgress = kSet;
    UnloadForm(Form8::kNumber);
  }
  void Write(const std::string& name, const std::string& bytes) const {
    std::ofstream(Folder() + "/httpEnglish/" + name, std::ios::binary) << bytes;
  }
  static int Port() { return LoadedConsole()->Winsock1(0).LocalPort(); }
  static std::string Ask(const std::string& request, const std::string& from = "127.0.0.1") {
    return WebClient(Port(), from).Ask(request);
  }
  static std::string Get(const std::string& path) {
    return Ask("GET " + path + " HTTP/1.1\r\nCookie: " + SessionToken() + "\r\n\r\n");
  }
  static std::string Post(const std::string& path, const std::string& body) {
    return "POST " + path + " HTTP/1.1\r\nCookie: " + SessionToken() + "\r\n\r\n" + body;
  }
  static void LogIn(const std::string& from = "127.0.0.1") {
    Ask("GET /x.gif " + LoginToken(), from);
  }
  /// Ends the first connection, whose place is free afterwards.
  void Lose(WebClient& client) {
    client.Vanish();
    PumpUntil([] { return LoadedConsole()->Winsock1(1).State() == platform::SocketState::Error; });
    clock.Advance(500);
  }
  /// Lets what has been sent arrive.
  static void Settle() {
    for (int i = 0; i < 20; ++i) platform::DoEvents();
  }
  static void ExpectAlive() { EXPECT_EQ(Get("/index.htm"), kHtml + "Model!\r\n"); }
};

TEST_F(ServerTest, EveryKindOfFileHasItsBytes) {
  const std::string raw("\0<%GETUPSModel%>\r\n\xFF", 19);
  const auto plain = {"a.jpg", "a.jpeg", "A.BMP", "a.js", "A.HTM"};
  for (const char* name : {"a.gif", "a.bmp", "a.html"}) Write(name, raw);
  for (const char* name : plain) Write(name, raw);
  std::filesystem::create_directory(Folder() + "/httpEnglish/sub");
  Write("sub/b.gif", "");
  LogIn();
  const std::pair<const char*, std::string> cases[] = {
      {"/a.gif", kGif + raw},
      {"/a.bmp", kBmp + raw},
      {"/a.html", kHtml + std::string("\0Model\r\n\xFF\r\n", 11)},
      {"/index.htm", kHtml + "Model!\r\n"},
      {"/", kLoginPage},
      {"/sub/b.gif", kGif},
      {"/sub/", kBad},
      {"/missing.gif", kBad},
      {"/index.htm?x", kBad},
  };
  for (const auto& [path, answer] : cases) EXPECT_EQ(Get(path), answer) << path;
  for (const std::string name : plain) EXPECT_EQ(Get("/" + name), raw) << name;
}

TEST_F(ServerTest, OneSessionThatTheLastLoginHas) {
  Write("a.gif", "");
  const std::string key = LoginKey;
  EXPECT_EQ(Ask("GET / HTTP/1.1"), kLoginPage);
  for (const char* path : {"/index.htm", "/index.htm../", "/index.htm..x", "/index.Htm"})
    EXPECT_EQ(Ask("GET " + std::string(path) + " HTTP/1.1"), kLoginPage) << path;
  for (const char* path : {"/index.htm/", "/index.htm\\", "/index.htm/.", "/index.htm//"})
    EXPECT_EQ(Ask("GET " + std::string(path) + " HTTP/1.1"), kBad) << path;
  EXPECT_EQ(Ask("GET /a.gif HTTP/1.1"), kGif) << "open to all";
  EXPECT_EQ(Ask(Post("/a.gif", "T1=")), kLoginPage) << "a POST is always guarded";
  EXPECT_EQ(Ask("GET /index.htm x" + LoginToken()), kHtml + "Model!\r\n");
  EXPECT_EQ(SessionKey, key);
  EXPECT_EQ(DataCenter.DebugLines[0], "2026/03/10 12:00:00  127.0.0.1" + LangText[217]);
  ExpectAlive();
  EXPECT_EQ(Ask("GET /index.htm HTTP/1.1"), kLoginPage) << "the token is missing";
  const std::string before = "GET /index.htm " + SessionToken();
  EXPECT_EQ(Ask(before, "127.0.0.2"), kLoginPage) << "a stranger with the token";
  LogIn("127.0.0.2");
  EXPECT_EQ(Ask("GET /index.htm " + SessionToken(), "127.0.0.2"), kHtml + "Model!\r\n");
  EXPECT_EQ(Ask(before), kLoginPage) << "the session has moved";
  platform::Database database(Folder() + "/database/Event.mdb");
  const auto rows = database.OpenRecordset("HTTPLOG");
  ASSERT_EQ(rows->RecordCount(), 2);
  rows->MoveLast();
  EXPECT_EQ(platform::ValueText(rows->Get("Time")), "2026-03-10 12:00:00");
  EXPECT_EQ(platform::ValueText(rows->Get("loginIP")), "127.0.0.2");
  std::filesystem::permissions(Folder() + "/database/Event.mdb", std::filesystem::perms(0444));
  EXPECT_EQ(Ask("GET /index.htm " + LoginToken()), kHtml + "Model!\r\n") << "a row alone is lost";
}

TEST_F(ServerTest, NothingOutsideTheLanguageFolderIsServed) {
  std::ofstream(Folder() + "/config.qmz") << "passwords";
  Write("secret.htm", "inside");
  Write("a.gif", "picture");
  std::filesystem::create_symlink("../config.qmz", Folder() + "/httpEnglish/link.gif");
  std::filesystem::create_symlink("..", Folder() + "/httpEnglish/up");
  std::filesystem::create_directory(Folder() + "/httpEnglish2");
  Write("../httpEnglish2/a.gif", "another's");
  std::filesystem::create_symlink("../httpEnglish2", Folder() + "/httpEnglish/beside");
  LogIn();
  EXPECT_EQ(Get("/../secret.htm"), kHtml + "inside\r\n");
  EXPECT_EQ(Get("/..x..y/a.gif"), kGif + "picture") << "the character behind the dots falls too";
  for (const char* path :
       {"/..\\..\\config.qmz", "\\..\\config.qmz", "/.\\../..config.qmz", "/....//config.qmz",
        "/.../...\\config.qmz", "//config.qmz", "/link.gif", "/up/config.qmz", "/up\\config.qmz",
        "/beside/a.gif", "/%2e%2e/config.qmz"})
    EXPECT_EQ(Get(path), kBad) << path;
  EXPECT_EQ(Get(std::string("/secret.htm\0.gif", 16)), kBad);
  EXPECT_EQ(Get("/" + std::string(50000, 'x')), kBad);
  DataCenter.settings.WebLanguageFolder.clear();
  EXPECT_EQ(Get("/config.qmz"), kBad);
  EXPECT_THROW(WritePage("page.htm", "text"), std::exception);
}

TEST_F(ServerTest, PathsRunTheirHandlers) {
  LogIn();
  Write("schedule.htm", "file");
  Write("controlmain.htm", "control");
  const std::string year = "<%GETEventYear%>.<%GETEventMonth%>";
  Write("srcscheduleshow.htm", year + "<%ScheduleTable%>");
  Write("srcscheduleevent.htm", year + ".<%GETEventDay%><%GETscheduleevent%>");
  Write("srceventdata.htm", year + ".<%GETEventDay%>");
  Write("srceventselect.htm", year + "<%EventTable%>");
  Write("srcMundata.htm", "rows<%GETMUNDATA%>");
  for (const char* name : {"showpic.htm", "showpic1.htm"}) Write(name, "<%GETENDTIME%>");
  // What is asked for, the file that its handler writes, and how that begins.
  const std::tuple<std::string, std::string, const char*> cases[] = {
      {"GET /schedule.htm ", "scheduleshow.htm", "2026.3"},
      {"GET /scheduleevent.htm ", "scheduleevent.htm", "2026.3.10"},
      {"GET /eventselect.htm ", "eventselect.htm", "2026.3"},
      {"POST /scheduleshow.htm T1=2025%2F2", "scheduleshow.htm", "2025.2"},
      {"POST /scheduleevent.htm T1=2025%2F2%2F7", "scheduleevent.htm", "2025.2.7"},
      {"POST /eventselect.htm T1=2025%2F2", "eventselect.htm", "2025.2"},
      {"POST /Mundata.htm T1=2026%2F3%2F10+11", "Mundata.htm", "rows"},
      {"POST /showpic.htm T1=2026%2F3%2F9+11+63", "chart.bmp", "BM"},
      {"POST /showpic1.htm T1=2026%2F3%2F9+11+63", "chart.bmp", "BM"},
  };
  for (const auto& [request, name, begin] : cases) {
    const std::string file = Folder() + "/httpEnglish/" + name;
    std::filesystem::remove(file);
    EXPECT_TRUE(Ask(request + " " + SessionToken()).starts_with(kHtml)) << request;
    EXPECT_TRUE(platform::ReadWholeFile(file).starts_with(begin)) << request;
  }
  // What a handler leaves for its page stays for the pages behind it.
  for (const auto& answer :
       {Ask(Post("/showpic.htm", "T1=2026%2F3%2F10+11+63")), Get("/showpic1.htm")})
    EXPECT_EQ(answer, kHtml + "12:00:01\r\n");
  EXPECT_EQ(Ask(Post("/controlmain.htm", "T1=P")), kHtml + "control\r\n");
  EXPECT_EQ(Link.PendingCommand, "CT");
  EXPECT_EQ(Ask(Post("/schedule.htm", "T1=")), kHtml + "file\r\n");
  EXPECT_TRUE(Ask(Post("/scheduleevent.htm", "T1")).starts_with(kHtml + "2025.2.7")) << "a file";
  for (const char* path : {"/Mundata.htm", "/showpic.htm", "/showpic1.htm", "/scheduleshow.htm",
                           "/eventdata.htm", "/controlmain.htm", "/eventselect.htm"}) {
    const WebClient client(Port());
    client.Send(Post(path, "T1"));
    ExpectAlive();
    EXPECT_TRUE(client.IsSilent()) << path;
  }
}

// A page of another origin makes the browser send its cookie; another client sends the head.
TEST_F(ServerTest, TheHeadOfAPostWaitsForItsOwnConnection) {
  LogIn();
  Write("controlmain.htm", "control");
  const std::string head = Post("/controlmain.htm", "");
  const std::string foreign = "HEAD /?T1=L HTTP/1.1\r\nCookie: " + SessionToken() + "\r\n\r\n";
  auto client = std::make_unique<WebClient>(Port());
  client->Send(head);
  EXPECT_EQ(Ask(foreign), kLoginPage);
  EXPECT_EQ(Ask("T1=L" + SessionToken()), kLoginPage);
  EXPECT_EQ(Link.PendingCommand, "");
  EXPECT_TRUE(client->IsSilent());
  EXPECT_EQ(client->Ask("T1=L"), kHtml + "control\r\n") << "its own body came late";
  EXPECT_EQ(std::exchange(Link.PendingCommand, ""), "TL");

  // Two heads, a head before a whole POST, and a head in two pieces.
  const std::string whole = head + "T1=P";
  const size_t cut = head.size() - 20;
  const std::vector<std::vector<std::string>> cases{
      {Post("/index.htm", ""), head, "T1=P"},
      {Post("/index.htm", ""), whole},
      {whole.substr(0, cut), whole.substr(cut, 20), "T1=P"}};
  for (const auto& pieces : cases) {
    client = std::make_unique<WebClient>(Port());
    for (const std::string& piece : pieces) {
      ExpectAlive();
      client->Send(piece);
    }
    EXPECT_EQ(client->ReadAll(), kHtml + "control\r\n") << pieces[1];
    EXPECT_EQ(std::exchange(Link.PendingCommand, ""), "CT");
  }

  client = std::make_unique<WebClient>(Port());
  client->Send(head);
  ExpectAlive();
  Lose(*client);
  EXPECT_EQ(Ask(foreign), kLoginPage) << "on the place of the one that went";
  EXPECT_EQ(Link.PendingCommand, "");
}

TEST_F(ServerTest, BadClientsDoNoHarm) {
  LogIn();
  std::mt19937 random(5);
  for (int i = 0; i < 50; ++i) {
    std::string bytes(1 + random() % 3000, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    WebClient client(Port());
    client.Send(i % 3 ? bytes : "GET " + bytes);
    if (i % 2) client.Vanish();
  }
  ExpectAlive();
  const WebClient half(Port());
  half.Send("GET / ");
  half.EndSending();
  EXPECT_EQ(half.ReadAll(), kLoginPage) << "it still wants its answer";
  EXPECT_EQ(Ask(std::string("GET /\0 ", 7)), kBad);
  DataCenter.settings.WebLoginPassword = std::string(64, 'x');
  const WebClient unlucky(Port());
  unlucky.Send("GET / ");
  EXPECT_TRUE(PumpUntil([] { return Form13::List1().back().ends_with("9錯誤"); }));
  EXPECT_TRUE(unlucky.IsSilent());
}

TEST_F(ServerTest, IdleConnectionsKeepNobodyOut) {
  LogIn();
  std::vector<std::unique_ptr<WebClient>> clients;
  // One of them is served, and has no answer to wait for.
  const auto connect = [&] { clients.push_back(std::make_unique<WebClient>(Port())); };
  while (clients.size() < 100) connect();
  PumpUntil([] { return LoadedConsole()->SocketCount() == 100; });
  clients[0]->Send(Post("/controlmain.htm", "T1"));
  clients[1]->Send("GET /half");
  Settle();
  ExpectAlive();
  EXPECT_EQ(clients[1]->ReadAll(), "") << "the oldest gave way";
  EXPECT_TRUE(clients[2]->IsSilent());
  EXPECT_EQ(clients[99]->Ask("GET / "), kLoginPage);
  clock.Advance(29500);
  connect();
  ExpectAlive();
  clock.Advance(500);
  EXPECT_EQ(clients[2]->ReadAll(), "") << "too late";
  EXPECT_TRUE(clients[0]->IsSilent() && clients[100]->IsSilent());
  ExpectAlive();
}

TEST_F(ServerTest, BeyondAHundredThatAreServedThereIsNoAnswer) {
  LogIn();
  std::vector<std::unique_ptr<WebClient>> clients(101);
  for (auto& client : clients) {
    client = std::make_unique<WebClient>(Port());
    client->Send(Post("/controlmain.htm", "T1"));
    Settle();
  }
  EXPECT_EQ(LoadedConsole()->SocketCount(), 101);
  EXPECT_TRUE(PumpUntil([] { return Form13::List1().back().ends_with("9錯誤"); }));
  for (const auto& client : clients) EXPECT_TRUE(client->IsSilent());
}

TEST_F(ServerTest, ASlowReaderHoldsUpNobodyAndLateBytesDestroyNoAnswer) {
  LogIn();
  for (const auto& [size, late] : {std::pair(20'000'000, 0), {900'000, 3}}) {
    const std::string picture(static_cast<size_t>(size), 'x');
    Write("big.gif", picture);
    const WebClient slow(Port());
    slow.Send("GET /big.gif ");
    ExpectAlive();
    for (int i = 0; i < late; ++i) {
      slow.Send("late bytes");
      ExpectAlive();
    }
    EXPECT_TRUE(slow.ReadAll() == kGif + picture) << size;
  }
}

TEST_F(ServerTest, CallersWaitWhileFewDescriptorsAreLeft) {
  rlimit usual{};
  getrlimit(RLIMIT_NOFILE, &usual);
  const WebClient client(Port());
  const int lowest = dup(0);
  close(lowest);
  const rlimit few{static_cast<rlim_t>(lowest) + 2, usual.rlim_max};
  setrlimit(RLIMIT_NOFILE, &few);
  client.Send("GET / ");
  Settle();
  EXPECT_EQ(LoadedConsole()->SocketCount(), 0);
  setrlimit(RLIMIT_NOFILE, &usual);
  EXPECT_EQ(client.ReadAll(), kLoginPage);

  platform::Socket listener("test", {});  // It refuses all callers.
  listener.Listen();
  const WebClient refused(listener.LocalPort());
  EXPECT_TRUE(PumpUntil([&] { return !refused.IsSilent(); })) << "its descriptor is left behind";
}

// What happens to a request's connection while the request lets others run.
TEST_F(ServerTest, ARequestThatLosesItsConnectionEnds) {
  int round = 1;  // Of the events that the request lets run, from a login on.
  int left = 0;
  std::function<void()> meanwhile;
  platform::Timer step("test", [&] {
    if (--left > 0) return platform::Post("test", [&] { clock.Wait(1); });
    if (meanwhile) std::exchange(meanwhile, nullptr)();
  });
  DataCenter.FormOpen[1] = kSet;  // A login tells the dashboard, in the middle of its request.
  OnDebugLinesChanged([&] {
    left = round;
    for (const int interval : {0, 1}) step.SetInterval(interval);
    clock.Wait(1);
  });
  for (; round <= 4; ++round) {
    auto client = std::make_unique<WebClient>(Port());
    std::unique_ptr<WebClient> next;
    meanwhile = [&] {
      Lose(*client);
      next = std::make_unique<WebClient>(Port());
      PumpUntil([] { return LoadedConsole()->Winsock1(1).RequestId() != 0; });
    };
    client->Send(std::string("GET /") + (round == 2 ? "none " : "index.htm ") + LoginToken());
    EXPECT_TRUE(PumpUntil([&] { return next != nullptr; })) << round;
    ExpectAlive();
    EXPECT_TRUE(next->IsSilent()) << "the answer was another's, round " << round;
    EXPECT_EQ(next->Ask("GET / "), kLoginPage);
  }

  round = 1;
  meanwhile = StopWebConsole;
  EXPECT_EQ(Ask("GET /index.htm " + LoginToken()), "");
  EXPECT_EQ(LoadedConsole()->SocketCount(), 0);
  StartWebConsole();
  LogIn();
  ExpectAlive();
  UnloadForm(Form8::kNumber);
  EXPECT_TRUE(LoadedConsole()) << "it outlives every unload but the last";
  meanwhile = End;
  EXPECT_EQ(Ask("GET /index.htm " + LoginToken()), "");
  EXPECT_FALSE(LoadedConsole() || DataCenter.FormOpen[8]);
}

TEST_F(ServerTest, TheStartLeavesALineAndATakenPortIsTriedAgain) {
  EXPECT_TRUE(DataCenter.DebugLines[0].starts_with("2026/03/10 12:00:00  HTTP URL :  http://"));
  EXPECT_TRUE(DataCenter.DebugLines[0].ends_with(":0/index.htm"));
  DataCenter.settings.WebEnabled = kSet;
  DataCenter.settings.WebPort = -1;
  StartWebConsole();
  clock.Advance(60000);
  EXPECT_FALSE(WebConsoleListens());
  EXPECT_EQ(DataCenter.DebugLines[0], "2026/03/10 12:00:00  HTTP Fail ,  Port-1Error");
  DataCenter.settings.WebPort = 0;  // As if the other program had let go of it.
  clock.Advance(60000);
  EXPECT_TRUE(WebConsoleListens());
  EXPECT_EQ(Ask("GET / "), kLoginPage);
}

TEST_F(ServerTest, ASocketTellsOfEachThingOnceAndBuffersWithinBounds) {
  int depth = 0, deepest = 0, completed = 0, failure = 0;
  size_t told = 0;
  const auto arrived = [&](size_t bytes) {
    deepest = std::max(deepest, ++depth);
    for (int i = 0; i < 50; ++i) platform::DoEvents();
    told += bytes;
    --depth;
  };
  platform::Socket peer("test", {.DataArrival = arrived,
                                 .SendComplete = [&] { ++completed; },
                                 .Error = [&](int number) { failure = number; }});
  platform::Socket listener("test", {.ConnectionRequest = [&](int64_t id) { peer.Accept(id); }});
  listener.Listen();
  const WebClient client(listener.LocalPort());
  EXPECT_TRUE(PumpUntil([&] { return peer.RequestId() != 0; }));
  peer.SendData("one");
  peer.SendData("two");
  EXPECT_TRUE(PumpUntil([&] { return completed > 0; }));
  client.Send("some");
  EXPECT_TRUE(PumpUntil([&] { return told > 0; }));
  EXPECT_EQ(peer.GetData(), "some");
  client.Send(std::string(1'200'000, 'x'));
  EXPECT_TRUE(PumpUntil([&] { return failure != 0; }));
  EXPECT_EQ(failure, ENOBUFS);
  EXPECT_EQ(deepest, 1);
  EXPECT_EQ(completed, 1);
  EXPECT_THROW(peer.SendData("three"), std::exception);
}

}  // namespace
}  // namespace varek
