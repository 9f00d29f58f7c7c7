#include "web/http_server.h"

#include "core/data_center.h"
#include "core/error_list.h"
#include "platform/clock.h"
#include "platform/database.h"
#include "platform/events.h"
#include "platform/guard.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"
#include "records/databases.h"
#include "records/events.h"
#include "settings/language.h"
#include "web/page_files.h"
#include "web/request.h"
#include "web/responses.h"
#include "web/routes.h"
#include "web/session.h"

namespace varek {

namespace {

constexpr int kSweepInterval = 500;
constexpr int kPortInterval = 60000;
constexpr size_t kCaptionText = 211;
constexpr size_t kLoginText = 217;
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

void Form8::ApplyLanguage() {
  caption_ = LangText[kCaptionText];
  loginText_ = LangText[kLoginText];
}

void Form8::Start() {
  const bool listens = platform::Guarded("form8 start", [this] { Listen(); });
  portTimer_.SetInterval(listens ? 0 : kPortInterval);
  if (listens) return AnnounceAddress();
  AddEventLine("HTTP Fail ,  Port" + std::to_string(DataCenter.WebPort) + "Error");
}

void Form8::AnnounceAddress() const {
  AddEventLine("HTTP URL :  http://" + Winsock1(0).LocalIP() + ":" +
               std::to_string(DataCenter.WebPort) + "/index.htm");
}

/// Whoever held the port may have ended. Only success is news.
void Form8::TryPortAgain() {
  if (!DataCenter.WebEnabled) return;
  platform::IgnoreErrors([this] { Listen(); });
  if (Winsock1(0).State() != platform::SocketState::Listening) return;
  portTimer_.SetInterval(0);
  AnnounceAddress();
}

void Form8::Listen() {
  platform::Socket& listener = Winsock1(0);
  listener.Close();
  listener.SetLocalPort(DataCenter.WebPort);
  listener.Listen();
}

void Form8::CloseAll() {
  portTimer_.SetInterval(0);
  Winsock1(0).Close();
  sockets_.resize(1);
}

platform::Socket& Form8::Winsock1(int index) const {
  if (index < 0 || index > SocketCount()) {
    throw platform::RuntimeError(platform::errors::kSubscript, "no such socket");
  }
  return *sockets_[static_cast<size_t>(index)];
}

std::string& Form8::PathAt(int index) {
  if (static_cast<size_t>(index) >= RequestPath.size()) {
    throw platform::RuntimeError(platform::errors::kSubscript, "too many connections");
  }
  return RequestPath[static_cast<size_t>(index)];
}

void Form8::LoadSocket(int index) {
  sockets_.push_back(std::make_unique<platform::Socket>(
      ElementName(index),
      platform::SocketHandlers{
          .ConnectionRequest = [this, index](int64_t id) { Winsock1_ConnectionRequest(index, id); },
          .DataArrival = [this, index](size_t) { Winsock1_DataArrival(index); },
          .SendComplete = [this, index] { Winsock1_SendComplete(index); },
          .Error = [this, index](int number) { Winsock1_Error(index, number); }}));
}

/// The first connection that is closed, else a new one.
int Form8::FreeSocket() {
  for (int index = 1; index <= SocketCount(); ++index) {
    if (Winsock1(index).State() <= platform::SocketState::Closed) return index;
  }
  LoadSocket(SocketCount() + 1);
  return SocketCount();
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
  platform::Socket& socket = Winsock1(FreeSocket());
  socket.SetLocalPort(0);
  socket.Accept(requestId);
}

void Form8::Winsock1_DataArrival(int index) {
  Request request{index, Winsock1(index).RequestId(), ""};
  if (!LetOthersRun(request)) return;
  request.text = Winsock1(index).GetData();
  if (AwaitsBody(request.text)) {
    PendingPost = request.text;
    return;
  }
  if (!IsPost(request.text) && !IsGet(request.text)) request.text.insert(0, PendingPost);
  DetectLogin(request);
  if (IsGuarded(request.text) && !IsInSession(request)) request.text = kLoginRequest;
  if (!LetOthersRun(request)) return;
  if (RunHandler(request) && IsStillThere(request)) Serve(request);
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

/// False when the request gets no answer.
bool Form8::RunHandler(const Request& request) {
  if (!IsGet(request.text) && !IsPost(request.text)) return true;
  const std::string path = PathOf(request.text);
  PathAt(request.index) = path;
  if (IsPost(request.text)) return RunPostRoute(path, request.text);
  RunGetRoute(path);
  return true;
}

void Form8::Serve(const Request& request) {
  const std::string name = FileNameOf(PathAt(request.index), kDefaultPage);
  if (!LetOthersRun(request)) return;
  PathAt(request.index) = DataCenter.WebLanguageFolder + name;
  if (!FileExists(name)) return Winsock1(request.index).SendData(BadRequest());
  SendFile(request, name);
}

/// The kind is told by the name that was asked for, in its case; the file may be spelled otherwise.
void Form8::SendFile(const Request& request, const std::string& name) {
  const std::string path = WebPath(name);
  const std::string content = IsPage(name) ? PageResponse(ReadPage(path)) : ReadSource(path);
  if (!IsStillThere(request)) return;
  Winsock1(request.index).SendData(FileHeader(name) + content);
}

void Form8::Winsock1_SendComplete(int index) {
  PathAt(index).clear();
  Winsock1(index).Close();
}

/// An error of the listener leaves it as it is.
void Form8::Winsock1_Error(int index, int number) {
  Form13::AddError("form8 WINSOCKET" + std::to_string(index) + "出現", number);
  if (index != 0) Winsock1(index).Close();
}

void Form8::Timer1_Timer() {
  for (int index = 1; index <= SocketCount(); ++index) {
    if (Winsock1(index).State() == platform::SocketState::Error) Winsock1(index).Close();
  }
}

}  // namespace varek
