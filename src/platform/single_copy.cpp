#include "platform/single_copy.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <memory>
#include <utility>

#include "platform/guard.h"
#include "platform/runtime_folder.h"

namespace platform {

namespace {

constexpr int kTextLimit = 64;
constexpr int kAnswerMilliseconds = 100;

RuntimeLock& CopyLock() {
  static RuntimeLock lock(".lock");
  return lock;
}

std::unique_ptr<QLocalServer>& Server() {
  static std::unique_ptr<QLocalServer> server;
  return server;
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

// Without a place for the lock the monitor must run all the same.
bool AnotherCopyRuns() { return CopyLock().Take() == LockTry::Busy; }

void ReleaseCopyLock() { CopyLock().Release(); }

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
