#include "platform/ports/socket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <utility>
#include <vector>

#include "platform/errors/guard.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/system.h"
#include "platform/time/events.h"

// The system's sockets, watched by the toolkit's notifiers. The toolkit's own sockets drop what is
// still to be sent as soon as the peer ends its sending, and ask for no more connections once the
// process has run out of descriptors.

namespace platform {

namespace {

constexpr size_t kWaitingLimit = 1024 * 1024;
constexpr rlim_t kReservedDescriptors = 64;
constexpr size_t kReadChunk = 64 * 1024;
constexpr int kIdleSecondsBeforeProbe = 60;
constexpr int kMillisecondsWithoutDescriptors = 500;
constexpr int kPartingSweep = 50;
constexpr int kPartingSweeps = 40;  ///< two seconds
constexpr int kPartingChunks = 16;  ///< dropped at most in one sweep

[[noreturn]] void FailSystem(const std::string& what) {
  const int number = errno;
  throw RuntimeError(number, what + ": " + std::strerror(number));
}

void SetOption(int descriptor, int level, int option, int value) {
  setsockopt(descriptor, level, option, &value, sizeof value);
}

/// Of either end of a connection: `ask` is getsockname or getpeername.
sockaddr_in AddressOf(int descriptor, int (*ask)(int, sockaddr*, socklen_t*)) {
  sockaddr_in address{};
  socklen_t size = sizeof address;
  ask(descriptor, reinterpret_cast<sockaddr*>(&address), &size);
  return address;
}

std::string Dotted(const sockaddr_in& address) {
  char text[INET_ADDRSTRLEN] = "";
  inet_ntop(AF_INET, &address.sin_addr, text, sizeof text);
  return text;
}

int OpenListener(int port) {
  const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
  if (descriptor < 0) FailSystem("socket");
  SetOption(descriptor, SOL_SOCKET, SO_REUSEADDR, 1);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_ANY);
  address.sin_port = htons(static_cast<uint16_t>(port));
  const bool open =
      bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
      listen(descriptor, SOMAXCONN) == 0;
  if (open) return descriptor;
  const int number = errno;
  close(descriptor);
  errno = number;
  FailSystem("port " + std::to_string(port));
}

/// Connections that have been announced and not yet accepted.
std::map<int64_t, int>& Requests() {
  static std::map<int64_t, int> requests;
  return requests;
}

int64_t AddRequest(int descriptor) {
  static int64_t lastId = 0;
  Requests()[++lastId] = descriptor;
  return lastId;
}

/// -1 when there is none of this id.
int TakeRequest(int64_t id) {
  const auto node = Requests().extract(id);
  return node ? node.mapped() : -1;
}

bool WouldBlock() { return errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR; }

/// Connections that are closed on this side. Closing one at once while its peer still sends would
/// make the system throw away what the peer has not fetched yet; so only the end is announced, and
/// for two seconds whatever comes is dropped.
class Partings final {
 public:
  Partings() {
    timer_.setInterval(kPartingSweep);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Sweep(); });
  }

  void Add(int descriptor) {
    shutdown(descriptor, SHUT_WR);
    parting_.push_back({descriptor, kPartingSweeps});
    if (!timer_.isActive()) timer_.start();  // A restart would put the sweep off forever.
  }

 private:
  struct Parting {
    int descriptor;
    int sweepsLeft;
  };

  static bool PeerHasEnded(int descriptor) {
    char bytes[kReadChunk];
    for (int chunk = 0; chunk < kPartingChunks; ++chunk) {
      const ssize_t count = recv(descriptor, bytes, sizeof bytes, 0);
      if (count < 0) return !WouldBlock();
      if (count == 0) return true;
    }
    return false;
  }

  void Sweep() {
    for (Parting& one : parting_) {
      if (--one.sweepsLeft > 0 && !PeerHasEnded(one.descriptor)) continue;
      close(one.descriptor);
      one.sweepsLeft = 0;
    }
    std::erase_if(parting_, [](const Parting& one) { return one.sweepsLeft == 0; });
    if (parting_.empty()) timer_.stop();
  }

  std::vector<Parting> parting_;
  QTimer timer_;
};

/// New connections stay in the listener's queue while few descriptors are left: the shutdown
/// command, the databases and the serial port need theirs.
bool DescriptorsRunLow(int descriptor) {
  rlimit limit{};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return false;
  const int lowestFree = dup(descriptor);
  if (lowestFree < 0) return true;
  close(lowestFree);
  const rlim_t reserve = std::min<rlim_t>(kReservedDescriptors, limit.rlim_cur / 4);
  return static_cast<rlim_t>(lowestFree) + reserve >= limit.rlim_cur;
}

void Part(int descriptor) {
  static auto* partings = new Partings;  // Never destroyed: the toolkit may be gone before.
  partings->Add(descriptor);
}

}  // namespace

struct Socket::Impl : std::enable_shared_from_this<Impl> {
  std::string place;
  SocketHandlers handlers;

  SocketState state = SocketState::Closed;
  int port = 0;
  int descriptor = -1;
  int64_t requestId = 0;
  std::string remote;
  std::unique_ptr<QSocketNotifier> reader;
  std::unique_ptr<QSocketNotifier> writer;

  std::string incoming;
  std::string outgoing;
  size_t sent = 0;          ///< bytes of `outgoing` that have left
  bool sending = false;     ///< something is queued, be it an empty text
  bool inputEnded = false;  ///< the peer sends no more

  // Events that wait to be raised.
  int failure = 0;
  bool sendDone = false;
  bool dataNews = false;
  bool connectionWaits = false;

  bool posted = false;  ///< Raise will come from the event loop
  bool busy = false;    ///< a handler of this element runs

  void Open(int opened, SocketState newState) {
    descriptor = opened;
    state = newState;
    reader = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(reader.get(), &QSocketNotifier::activated, reader.get(),
                     [this] { state == SocketState::Listening ? Knock() : Read(); });
  }

  void OpenConnection(int accepted) {
    SetOption(accepted, SOL_SOCKET, SO_KEEPALIVE, 1);
    SetOption(accepted, IPPROTO_TCP, TCP_KEEPIDLE, kIdleSecondsBeforeProbe);
    remote = Dotted(AddressOf(accepted, getpeername));
    Open(accepted, SocketState::Connected);
    writer = std::make_unique<QSocketNotifier>(accepted, QSocketNotifier::Write);
    writer->setEnabled(false);
    QObject::connect(writer.get(), &QSocketNotifier::activated, writer.get(), [this] { Write(); });
  }

  /// Forgets the connection and everything that belongs to it.
  void Release(SocketState newState) {
    const bool peerMaySend = state == SocketState::Connected && !inputEnded;
    reader.reset();
    writer.reset();
    if (descriptor >= 0) peerMaySend ? Part(descriptor) : static_cast<void>(close(descriptor));
    descriptor = -1;
    state = newState;
    requestId = 0;
    remote.clear();
    incoming.clear();
    outgoing.clear();
    sent = 0;
    failure = 0;
    sending = inputEnded = sendDone = dataNews = connectionWaits = false;
  }

  void Fail(int number) {
    Release(SocketState::Error);
    failure = number;
    Notify();
  }

  void Knock() {
    reader->setEnabled(false);
    connectionWaits = true;
    Notify();
  }

  void Read() {
    char bytes[kReadChunk];
    const ssize_t count = recv(descriptor, bytes, sizeof bytes, 0);
    if (count < 0) return WouldBlock() ? void() : Fail(errno);
    if (count == 0) return EndInput();
    incoming.append(bytes, static_cast<size_t>(count));
    if (incoming.size() > kWaitingLimit) return Fail(ENOBUFS);
    dataNews = true;
    Notify();
  }

  void EndInput() {
    reader->setEnabled(false);  // An ended input counts as readable forever.
    inputEnded = true;
    GiveUpDeadPeer();
  }

  /// Nothing will come, and nothing is left to be sent or about to be.
  void GiveUpDeadPeer() {
    if (inputEnded && !busy && !dataNews && !sending && !sendDone) Release(SocketState::Error);
  }

  void Write() {
    const ssize_t count =
        send(descriptor, outgoing.data() + sent, outgoing.size() - sent, MSG_NOSIGNAL);
    if (count < 0) return WouldBlock() ? void() : Fail(errno);
    sent += static_cast<size_t>(count);
    if (sent < outgoing.size()) return;
    writer->setEnabled(false);
    outgoing.clear();
    sent = 0;
    sending = false;
    sendDone = true;
    Notify();
  }

  bool HasEvent() const { return failure != 0 || sendDone || dataNews || connectionWaits; }

  void Notify() {
    if (posted || busy) return;
    posted = true;
    Post(place, [self = shared_from_this()] { self->Raise(); });
  }

  void Raise() {
    posted = false;
    if (busy) return;
    busy = true;
    Guarded(place, [this] { RaiseOne(); });
    busy = false;
    GiveUpDeadPeer();
    if (HasEvent()) Notify();
  }

  void RaiseOne() {
    if (failure != 0) {
      const int number = std::exchange(failure, 0);
      if (handlers.Error) handlers.Error(number);
    } else if (std::exchange(sendDone, false)) {
      if (handlers.SendComplete) handlers.SendComplete();
    } else if (std::exchange(dataNews, false)) {
      if (handlers.DataArrival && !incoming.empty()) handlers.DataArrival(incoming.size());
    } else if (std::exchange(connectionWaits, false)) {
      RaiseConnectionRequest();
    }
  }

  void RaiseConnectionRequest() {
    if (DescriptorsRunLow(descriptor)) return LookAgainLater();
    const int caller = accept4(descriptor, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
    if (caller < 0) return ListenAgain();
    connectionWaits = true;  // Perhaps; the next look tells.
    const int64_t id = AddRequest(caller);
    Guarded(place, [&] {
      if (handlers.ConnectionRequest) handlers.ConnectionRequest(id);
    });
    if (const int refused = TakeRequest(id); refused >= 0) close(refused);
  }

  /// Without descriptors the connection stays in the queue, and the notifier would never stop.
  void ListenAgain() {
    const int number = errno;
    if (number != EMFILE && number != ENFILE && number != ENOBUFS && number != ENOMEM) {
      return reader->setEnabled(true);
    }
    LookAgainLater();
    if (handlers.Error) handlers.Error(number);
  }

  void LookAgainLater() {
    QTimer::singleShot(kMillisecondsWithoutDescriptors, reader.get(),
                       [this] { reader->setEnabled(true); });
  }
};

Socket::Socket(std::string place, SocketHandlers handlers) : impl_(std::make_shared<Impl>()) {
  impl_->place = std::move(place);
  impl_->handlers = std::move(handlers);
}

Socket::~Socket() { Close(); }

void Socket::SetLocalPort(int port) { impl_->port = port; }
int Socket::LocalPort() const { return impl_->port; }

void Socket::Listen() {
  if (impl_->port < 0 || impl_->port > UINT16_MAX) {
    throw RuntimeError(EINVAL, "no such port: " + std::to_string(impl_->port));
  }
  Close();
  const int descriptor = OpenListener(impl_->port);
  impl_->port = ntohs(AddressOf(descriptor, getsockname).sin_port);
  impl_->Open(descriptor, SocketState::Listening);
}

void Socket::Accept(int64_t requestId) {
  const int descriptor = TakeRequest(requestId);
  if (descriptor < 0) throw RuntimeError(errors::kSocketState, "no such connection request");
  Close();
  impl_->OpenConnection(descriptor);
  impl_->requestId = requestId;
}

int64_t Socket::RequestId() const { return impl_->requestId; }

std::string Socket::GetData() {
  impl_->dataNews = false;
  return std::exchange(impl_->incoming, {});
}

void Socket::SendData(const std::string& bytes) {
  if (impl_->state != SocketState::Connected) {
    throw RuntimeError(errors::kSocketState, "no connection to send on");
  }
  if (impl_->outgoing.size() - impl_->sent > kWaitingLimit) return impl_->Fail(ENOBUFS);
  impl_->outgoing += bytes;
  impl_->sending = true;
  impl_->sendDone = false;
  impl_->writer->setEnabled(true);
}

void Socket::Close() { impl_->Release(SocketState::Closed); }

SocketState Socket::State() const { return impl_->state; }
std::string Socket::RemoteHostIP() const { return impl_->remote; }

std::string Socket::LocalIP() const {
  if (impl_->state != SocketState::Connected) return LocalAddress();
  return Dotted(AddressOf(impl_->descriptor, getsockname));
}

}  // namespace platform
