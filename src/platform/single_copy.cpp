#include "platform/single_copy.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QLocalServer>
#include <QLocalSocket>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <utility>

#include "platform/guard.h"
#include "platform/paths.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr int kTextLimit = 64;
constexpr int kAnswerMilliseconds = 100;

int lockFile = -1;

std::unique_ptr<QLocalServer>& Server() {
  static std::unique_ptr<QLocalServer> server;
  return server;
}

/// A folder that only this user can use: that of the session, else one of our own.
/// Empty when there is none that can be trusted.
std::string RuntimeFolder() {
  if (const char* folder = std::getenv("XDG_RUNTIME_DIR"); folder && *folder) return folder;
  const uid_t user = getuid();
  const std::string folder = user == 0 ? "/run/varek" : "/tmp/varek-" + std::to_string(user);
  mkdir(folder.c_str(), 0700);
  struct stat info {};
  const bool ours = lstat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode) &&
                    info.st_uid == user && (info.st_mode & (S_IRWXG | S_IRWXO)) == 0;
  return ours ? folder : "";
}

/// FNV-1a: a short name that any two folders are most unlikely to share.
std::string FolderKey() {
  uint64_t hash = 14695981039346656037U;
  std::error_code error;
  for (const char c : fs::weakly_canonical(ProgramFolder(), error).string()) {
    hash = (hash ^ static_cast<uint8_t>(c)) * 1099511628211U;
  }
  char text[17];
  std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
  return text;
}

/// Without a folder an empty path, which nothing can be opened under.
std::string RuntimePath(const std::string& suffix) {
  const std::string folder = RuntimeFolder();
  return folder.empty() ? "" : folder + "/varek-" + FolderKey() + suffix;
}

QString SocketName() { return QString::fromStdString(RuntimePath(".sock")); }

using Execute = std::function<void(const std::string&)>;

void ReadText(QLocalSocket& socket, const Execute& execute) {
  const std::string text = socket.read(kTextLimit).toStdString();
  socket.disconnectFromServer();
  Guarded("form12 LinkExecute", [&] { execute(text); });
}

void Serve(QLocalServer& server, const Execute& execute) {
  QLocalSocket* socket = server.nextPendingConnection();
  QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
  QObject::connect(socket, &QLocalSocket::readyRead, socket,
                   [socket, execute] { ReadText(*socket, execute); });
}

}  // namespace

bool AnotherCopyRuns() {
  if (lockFile >= 0) return false;
  const int file =
      open(RuntimePath(".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (file < 0) return false;  // Without a place for the lock the monitor must run all the same.
  if (flock(file, LOCK_EX | LOCK_NB) != 0) {
    const bool taken = errno == EWOULDBLOCK;
    close(file);
    return taken;
  }
  lockFile = file;
  return false;
}

void ReleaseCopyLock() {
  if (lockFile >= 0) close(lockFile);
  lockFile = -1;
}

void ListenToCopies(std::function<void(const std::string&)> execute) {
  Server() = std::make_unique<QLocalServer>();
  QLocalServer* server = Server().get();
  server->setSocketOptions(QLocalServer::UserAccessOption);
  QObject::connect(server, &QLocalServer::newConnection, server,
                   [server, execute = std::move(execute)] { Serve(*server, execute); });
  QLocalServer::removeServer(SocketName());  // One that was killed leaves its socket behind.
  server->listen(SocketName());
}

void StopListening() { Server().reset(); }

void SendToCopy(const std::string& text) {
  QLocalSocket socket;
  socket.connectToServer(SocketName());
  if (!socket.waitForConnected(kAnswerMilliseconds)) return;
  socket.write(text.data(), static_cast<qint64>(text.size()));
  socket.waitForBytesWritten(kAnswerMilliseconds);
}

}  // namespace platform
