#include "web/server/http_server.h"

#include <algorithm>
#include <utility>

#include "core/data_center.h"
#include "core/debug_lines.h"
#include "core/error_list.h"
#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/storage/database.h"
#include "platform/system/paths.h"
#include "platform/time/clock.h"
#include "platform/time/events.h"
#include "records/files/databases.h"
#include "texts/language.h"
#include "web/pages/page_files.h"
#include "web/server/request.h"
#include "web/server/responses.h"
#include "web/server/routes.h"
#include "web/server/template_engine.h"
#include "web/session/session.h"

namespace varek {

namespace {

constexpr int kSweepInterval = 500;
constexpr int kPortInterval = 60000;
/// Connections beyond get no answer.
constexpr int kLastPlace = 100;
constexpr int64_t kRequestLimit = 30000;  ///< milliseconds until a request must be complete
constexpr char kDefaultPage[] = "login.htm";
/// What a request without a session becomes.
constexpr char kLoginRequest[] = "GET /login.htm ";
constexpr char kWebLogAddress[] = "loginIP";

std::string ElementName(int index) { return "form8 Winsock1(" + std::to_string(index) + ")"; }

void AppendWebLog(const std::string& address) {
  platform::Database database(platform::ProgramPath(kEventFile));
  const auto rows = database.OpenRecordset(kWebLogTable);
  rows->AddNew();
  rows->Set(kWebLogTime, platform::FormatStored(platform::Now()));
  rows->Set(kWebLogAddress, address);
  rows->Update();
}

bool FileExists(const std::string& name) {
  bool exists = false;
  platform::IgnoreErrors([&] { exists = platform::IsFile(WebPath(name)); });
  return exists;
}

}  // namespace

Form8::Form8()
    : Timer1(
          "form8 Timer1", [this] { Timer1_Timer(); }, kSweepInterval),
      portTimer_("form8 port", [this] { TryPortAgain(); }) {
  DataCenter.FormOpen[kNumber] = kSet;
  ApplyLanguage();
  LoadSocket(0);
}

Form8::~Form8() { DataCenter.FormOpen[kNumber] = kClear; }

void Form8::ApplyLanguage() { loginText_ = LangText[texts::kLoggedIn]; }

void Form8::Start() {
  const bool listens = platform::Guarded("form8 start", [this] { Listen(); });
  portTimer_.SetInterval(listens ? 0 : kPortInterval);
  if (listens) return AnnounceAddress();
  AddEventLine("HTTP Fail ,  Port" + std::to_string(DataCenter.settings.WebPort) + "Error");
}

void Form8::AnnounceAddress() const {
  AddEventLine("HTTP URL :  http://" + Winsock1(0).LocalIP() + ":" +
               std::to_string(DataCenter.settings.WebPort) + "/index.htm");
}

/// The port may be free by now. Only success is reported.
void Form8::TryPortAgain() {
  if (!DataCenter.settings.WebEnabled) return;
  platform::IgnoreErrors([this] { Listen(); });
  if (Winsock1(0).State() != platform::SocketState::Listening) return;
  portTimer_.SetInterval(0);
  AnnounceAddress();
}

void Form8::Listen() {
  platform::Socket& listener = Winsock1(0);
  listener.Close();
  listener.SetLocalPort(DataCenter.settings.WebPort);
  listener.Listen();
}

void Form8::CloseAll() {
  portTimer_.SetInterval(0);
  Winsock1(0).Close();
  elements_.resize(1);
}

platform::Socket& Form8::Winsock1(int index) const {
  if (index < 0 || index > SocketCount()) {
    throw platform::RuntimeError(platform::errors::kSubscript, "no such socket");
  }
  return *At(index).socket;
}

std::string& Form8::PathAt(int index) {
  if (index > kLastPlace) {
    throw platform::RuntimeError(platform::errors::kSubscript, "too many connections");
  }
  return At(index).RequestPath;
}

void Form8::LoadSocket(int index) {
  Element element;
  element.socket = std::make_unique<platform::Socket>(
      ElementName(index),
      platform::SocketHandlers{
          .ConnectionRequest = [this, index](int64_t id) { Winsock1_ConnectionRequest(index, id); },
          .DataArrival = [this, index](size_t) { Winsock1_DataArrival(index); },
          .SendComplete = [this, index] { Winsock1_SendComplete(index); },
          .Error = [this, index](int number) { Winsock1_Error(index, number); }});
  elements_.push_back(std::move(element));
}

/// One behind the last when none is.
int Form8::FirstClosed() const {
  int index = 1;
  while (index <= SocketCount() && Winsock1(index).State() > platform::SocketState::Closed) ++index;
  return index;
}

/// Its peer has gone, or has sent no complete request yet.
bool Form8::GivesWay(int index) const {
  return Winsock1(index).State() == platform::SocketState::Error || !At(index).hasRequest;
}

/// Among the connections that can be answered; 0 when all of them are being served.
int Form8::OldestThatGivesWay() const {
  int oldest = 0;
  const auto id = [this](int index) { return Winsock1(index).RequestId(); };  // They count up.
  for (int index = 1; index <= kLastPlace; ++index) {
    if (GivesWay(index) && (oldest == 0 || id(index) < id(oldest))) oldest = index;
  }
  return oldest;
}

/// The first connection that is closed, else a new one. When all places are taken the oldest idle
/// connection gives way, so that idle clients lock nobody out.
int Form8::FreeSocket() {
  const int closed = FirstClosed();
  const int idle = closed > kLastPlace ? OldestThatGivesWay() : 0;
  if (idle != 0) return idle;
  if (closed > SocketCount()) LoadSocket(closed);
  return closed;
}

void Form8::Accept(int index, int64_t requestId) {
  Close(index);
  At(index).beginning = platform::TickCount();
  Winsock1(index).SetLocalPort(0);
  Winsock1(index).Accept(requestId);
}

/// Nothing of a connection outlives it.
void Form8::Close(int index) {
  At(index) = Element{.socket = std::move(At(index).socket)};
  Winsock1(index).Close();
}

bool Form8::IsStillThere(const Request& request) {
  const Form8* form = LoadedConsole();
  return form && request.index <= form->SocketCount() &&
         form->Winsock1(request.index).RequestId() == request.connection;
}

/// Lets other events run; false when the request's connection has not outlived them. The form
/// itself may be gone then.
bool Form8::LetOthersRun(const Request& request) {
  platform::DoEvents();
  return IsStillThere(request);
}

void Form8::Winsock1_ConnectionRequest(int index, int64_t requestId) {
  if (index != 0) return;
  const Form8* self = this;
  platform::DoEvents();
  const bool stopped =
      LoadedConsole() != self || Winsock1(0).State() != platform::SocketState::Listening;
  if (stopped) return;
  Accept(FreeSocket(), requestId);
}

void Form8::Winsock1_DataArrival(int index) {
  Request request{index, Winsock1(index).RequestId(), "", values_};
  if (!LetOthersRun(request)) return;
  if (!TakeRequest(request)) return;
  DetectLogin(request);
  if (!MayHave(request)) request.text = kLoginRequest;
  At(index).hasRequest = true;
  if (!LetOthersRun(request)) return;
  const bool isAnswered = RunHandler(request);
  if (!IsStillThere(request)) return;
  if (isAnswered) return Serve(request);
  if (request.isJoined) AwaitMore(request);
}

/// False while only the head of a POST is there. It waits for its fields on its own connection:
/// with those of another one they would act under a session that is not the sender's.
bool Form8::TakeRequest(Request& request) {
  Element& element = At(request.index);
  request.text = element.socket->GetData();
  const std::string head = std::exchange(element.PendingPost, {});
  if (AwaitsBody(request.text)) {
    element.PendingPost = request.text;
    return false;
  }
  request.isJoined = !head.empty() && !IsPost(request.text) && !IsGet(request.text);
  if (request.isJoined) request.text.insert(0, head);
  return true;
}

/// The field of a POST in more than two pieces is still to come.
void Form8::AwaitMore(const Request& request) {
  At(request.index).PendingPost = request.text;
  At(request.index).hasRequest = false;
}

/// Any request that holds the token is a login, whatever it asks for.
void Form8::DetectLogin(const Request& request) {
  if (request.text.find(LoginToken()) == std::string::npos) return;
  LogIn(Winsock1(request.index).RemoteHostIP());
}

/// Takes the session away from whoever had it. A full disk costs the row, not the login.
void Form8::LogIn(const std::string& address) {
  LoggedInIP = address;
  SessionKey = LoginKey;
  LoginKey = NewKey();
  AddEventLine(address + loginText_);
  platform::Guarded("form8 web log", [&] { AppendWebLog(address); });
}

bool Form8::IsInSession(const Request& request) const {
  return Winsock1(request.index).RemoteHostIP() == LoggedInIP &&
         request.text.find(SessionToken()) != std::string::npos;
}

/// A browser sends other requests than GET and POST, with the cookie of its session, for whatever
/// page asks it to; so they count as without one.
bool Form8::MayHave(const Request& request) const {
  if (!IsGuarded(request.text)) return true;
  return (IsGet(request.text) || IsPost(request.text)) && IsInSession(request);
}

/// False when the request gets no answer.
bool Form8::RunHandler(const Request& request) {
  const std::string path = PathOf(request.text);
  PathAt(request.index) = path;
  if (IsPost(request.text)) return RunPostRoute(path, request.text, *request.values);
  RunGetRoute(path);
  return true;
}

void Form8::Serve(const Request& request) {
  const std::string name = FileNameOf(PathAt(request.index), kDefaultPage);
  if (!LetOthersRun(request)) return;
  PathAt(request.index) = DataCenter.settings.WebLanguageFolder + name;
  if (!FileExists(name)) return Winsock1(request.index).SendData(BadRequest());
  SendFile(request, name);
}

/// The kind follows from the name that was asked for, in its case; the file may be spelled
/// otherwise.
void Form8::SendFile(const Request& request, const std::string& name) {
  const std::string path = WebPath(name);
  const std::string content =
      IsPage(name) ? PageResponse(ReadPage(path, *request.values)) : ReadSource(path);
  if (!IsStillThere(request)) return;
  Winsock1(request.index).SendData(FileHeader(name) + content);
}

void Form8::Winsock1_SendComplete(int index) { Close(index); }

/// An error of the listener leaves it as it is.
void Form8::Winsock1_Error(int index, int number) {
  Form13::AddError("form8 WINSOCKET" + std::to_string(index) + "出現", number);
  if (index != 0) Close(index);
}

void Form8::Timer1_Timer() {
  const int64_t latest = platform::TickCount() - kRequestLimit;
  for (int index = 1; index <= SocketCount(); ++index) {
    const bool isLate = !At(index).hasRequest && At(index).beginning <= latest;
    if (isLate || Winsock1(index).State() == platform::SocketState::Error) Close(index);
  }
}

}  // namespace varek
