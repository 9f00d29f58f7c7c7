#include "platform/copies/single_copy.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <cerrno>
#include <memory>
#include <utility>

#include "platform/copies/file_lock.h"
#include "platform/errors/guard.h"
#include "platform/system/descriptor.h"
#include "platform/system/paths.h"

namespace platform {

namespace {

constexpr char kLockName[] = ".varek.lock";
constexpr char kSocketName[] = ".varek.sock";
constexpr int kTextLimit = 64;
constexpr size_t kAnswerLimit = 512;
constexpr timeval kPatience{1, 0};
constexpr int kCallMilliseconds = 1000;
constexpr int kMostCalls = 8;  ///< at a time: every account can call

int OpenFolder() { return open(ProgramFolder().c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }

/// Those who may write in the folder may open the lock. Nobody else: a reader could hold it too.
mode_t LockMode(mode_t folder, bool sameGroup) {
  if (folder & S_IWOTH) return 0666;
  return (folder & S_IWGRP) && sameGroup ? 0660 : 0600;
}

/// Refused where the file is another account's, which has done the same.
void GiveToWriters(int lock, int folder) {
  constexpr uid_t kAsItIs = -1;
  struct stat info {};
  if (fstat(folder, &info) != 0) return;
  const bool sameGroup =
      fchown(lock, info.st_uid, info.st_gid) == 0 || fchown(lock, kAsItIs, info.st_gid) == 0;
  fchmod(lock, LockMode(info.st_mode, sameGroup));
}

/// Never removed, so that two copies can't lock two files. A present one is opened without
/// O_CREAT, with which the system refuses another account's file in a folder for everybody.
int OpenLock() {
  const Descriptor folder(OpenFolder());
  constexpr int kHow = O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  int lock = openat(folder.Number(), kLockName, kHow | O_CREAT | O_EXCL, 0600);
  if (lock < 0) lock = openat(folder.Number(), kLockName, kHow);
  if (lock >= 0) GiveToWriters(lock, folder.Number());
  return lock;
}

FileLock& CopyLock() {
  static FileLock lock(OpenLock);
  return lock;
}

/// By way of the open folder, since an address has room for a short name only.
sockaddr_un SocketAddress(int folder) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const std::string path = "/proc/self/fd/" + std::to_string(folder) + "/" + kSocketName;
  std::ranges::copy(path, address.sun_path);
  return address;
}

/// -1 when no copy listens. One that has more calls than it can take makes this wait a second.
int CallCopy() {
  const Descriptor folder(OpenFolder());
  const sockaddr_un address = SocketAddress(folder.Number());
  Descriptor call(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  for (const int option : {SO_SNDTIMEO, SO_RCVTIMEO}) {
    setsockopt(call.Number(), SOL_SOCKET, option, &kPatience, sizeof kPatience);
  }
  const auto* to = reinterpret_cast<const sockaddr*>(&address);
  const bool there = connect(call.Number(), to, sizeof address) == 0 || errno == EAGAIN;
  return there ? call.Release() : -1;
}

bool CopyAnswers() { return Descriptor(CallCopy()).Number() >= 0; }

struct Listener {
  Descriptor folder{OpenFolder()};
  QLocalServer server;

  ~Listener() {
    server.close();
    unlinkat(folder.Number(), kSocketName, 0);
  }
};

std::unique_ptr<Listener>& TheListener() {
  static std::unique_ptr<Listener> listener;
  return listener;
}

/// A socket in the folder that every account may call; -1 when it can't be made.
int OpenListener(int folder) {
  Descriptor listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  const sockaddr_un address = SocketAddress(folder);
  unlinkat(folder, kSocketName, 0);  // One that was killed leaves its socket behind.
  const mode_t usual = umask(0);
  const bool bound =
      bind(listener.Number(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  umask(usual);
  const bool listens = bound && listen(listener.Number(), kMostCalls) == 0;
  return listens ? listener.Release() : -1;
}

using Execute = std::function<std::string(const std::string&)>;

/// The call may end while the text is being executed.
void Answer(const QPointer<QLocalSocket>& call, const Execute& execute) {
  const std::string text = call->read(kTextLimit).toStdString();
  std::string answer;
  Guarded("form12 LinkExecute", [&] { answer = execute(text); });
  if (!call) return;
  call->write(answer.data(), static_cast<qint64>(answer.size()));
  call->disconnectFromServer();
}

void Serve(QLocalServer& server, const Execute& execute) {
  const QPointer<QLocalSocket> call = server.nextPendingConnection();
  QObject::connect(call, &QLocalSocket::disconnected, call, &QObject::deleteLater);
  if (server.findChildren<QLocalSocket*>().size() > kMostCalls) return call->abort();
  QTimer::singleShot(kCallMilliseconds, call, [call] { call->abort(); });
  QObject::connect(call, &QLocalSocket::readyRead, call,
                   [call, execute] { Answer(call, execute); });
}

}  // namespace

bool AnotherCopyRuns() {
  if (CopyLock().IsTaken() || TheListener()) return false;
  if (CopyLock().Take() == LockTry::Busy) return true;
  const bool answers = CopyAnswers();
  if (answers) CopyLock().Release();
  return answers;
}

void ReleaseCopyLock() { CopyLock().Release(); }

void ListenToCopies(Execute execute) {
  StopListening();
  auto listener = std::make_unique<Listener>();
  QLocalServer* server = &listener->server;
  QObject::connect(server, &QLocalServer::newConnection, server,
                   [server, execute = std::move(execute)] { Serve(*server, execute); });
  const int socket = OpenListener(listener->folder.Number());
  if (socket < 0 || !server->listen(socket)) return;
  TheListener() = std::move(listener);
}

void StopListening() { TheListener().reset(); }

std::string SendToCopy(const std::string& text) {
  const Descriptor call(CallCopy());
  if (send(call.Number(), text.data(), text.size(), MSG_NOSIGNAL) < 0) return {};
  char answer[kAnswerLimit];
  const ssize_t size = recv(call.Number(), answer, sizeof answer, 0);
  return std::string(answer, size > 0 ? static_cast<size_t>(size) : 0);
}

}  // namespace platform
