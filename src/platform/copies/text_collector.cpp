#include "platform/copies/text_collector.h"

#include <unistd.h>

#include <QLocalServer>
#include <QLocalSocket>
#include <utility>

#include "platform/copies/runtime_folder.h"
#include "platform/errors/guard.h"
#include "platform/time/clock.h"

namespace platform {

namespace {

// A text ends with a NUL character; the answer is one byte. Both sides are always of one build.
constexpr char kEnd = '\0';
constexpr char kConfirmed = '+';

constexpr int kTextLimit = 8 * 1024;
constexpr int kAnswerMilliseconds = 2'000;
constexpr int kPatienceMilliseconds = 10'000;
constexpr useconds_t kTryAgainMicroseconds = 20'000;

using Receive = std::function<void(const std::string&)>;

/// Waits for the rest of a text that came in pieces.
void TakeText(QLocalSocket& socket, const Receive& receive) {
  const QByteArray bytes = socket.peek(kTextLimit + 1);
  const qsizetype end = bytes.indexOf(kEnd);
  if (end < 0 && bytes.size() <= kTextLimit) return;
  if (end < 0) return socket.abort();
  socket.readAll();
  if (!Guarded("text collector", [&] { receive(bytes.first(end).toStdString()); })) {
    return socket.abort();
  }
  socket.putChar(kConfirmed);
  socket.flush();
  socket.disconnectFromServer();
}

void Serve(QLocalServer& server, const Receive& receive) {
  QLocalSocket* socket = server.nextPendingConnection();
  socket->setReadBufferSize(kTextLimit + 1);
  QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
  QObject::connect(socket, &QLocalSocket::readyRead, socket,
                   [socket, receive] { TakeText(*socket, receive); });
}

}  // namespace

struct TextCollector::Impl {
  explicit Impl(const std::string& topic)
      : lock("-" + topic + ".lock"), socketSuffix("-" + topic + ".sock") {}

  QString SocketName() const { return QString::fromStdString(RuntimePath(socketSuffix)); }

  bool Send(const std::string& text) const {
    QLocalSocket socket;
    socket.connectToServer(SocketName());
    if (!socket.waitForConnected(kAnswerMilliseconds)) return false;
    socket.write(text.c_str(), static_cast<qint64>(text.size()) + static_cast<qint64>(sizeof kEnd));
    char answer = 0;
    return socket.waitForReadyRead(kAnswerMilliseconds) && socket.getChar(&answer) &&
           answer == kConfirmed;
  }

  RuntimeLock lock;
  std::string socketSuffix;
  std::unique_ptr<QLocalServer> server;
};

TextCollector::TextCollector(const std::string& topic) : impl_(std::make_unique<Impl>(topic)) {}

TextCollector::~TextCollector() { Stop(); }

// Between taking the lock and listening, and between closing and giving the lock back, a copy can't
// be reached. Either is over soon, and then it answers or the lock is free.
bool TextCollector::HandOver(const std::string& text) {
  const int64_t end = TickCount() + kPatienceMilliseconds;
  while (impl_->lock.Take() == LockTry::Busy && TickCount() < end) {
    if (impl_->Send(text)) return true;
    usleep(kTryAgainMicroseconds);
  }
  return false;
}

void TextCollector::Collect(std::function<void(const std::string&)> receive) {
  if (!impl_->lock.IsTaken()) return;
  impl_->server = std::make_unique<QLocalServer>();
  QLocalServer* server = impl_->server.get();
  server->setSocketOptions(QLocalServer::UserAccessOption);
  QObject::connect(server, &QLocalServer::newConnection, server,
                   [server, receive = std::move(receive)] { Serve(*server, receive); });
  QLocalServer::removeServer(impl_->SocketName());  // One that was killed leaves its socket behind.
  if (!server->listen(impl_->SocketName())) Stop();
}

void TextCollector::Stop() {
  impl_->server.reset();
  impl_->lock.Release();
}

}  // namespace platform
