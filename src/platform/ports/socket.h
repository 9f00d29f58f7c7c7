// One element of an array of sockets: a listener, or one connection that it has accepted. What
// happens to it comes as events, each entered from the event loop through the guard. Events of one
// element never nest: what comes while a handler pumps waits until that handler has ended.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace platform {

namespace errors {
constexpr int kSocketState = 40006;  ///< the element has no connection
}

enum class SocketState { Closed = 0, Listening = 2, Connected = 7, Error = 9 };

/// The events of an element; a handler that is not set is not called.
struct SocketHandlers {
  /// A connection waits at the listener. One that the handler does not accept is refused.
  std::function<void(int64_t requestId)> ConnectionRequest = nullptr;
  /// Bytes wait that have not been announced; never raised when none do.
  std::function<void(size_t byteTotal)> DataArrival = nullptr;
  /// All that was queued has left; raised once, however many calls queued it.
  std::function<void()> SendComplete = nullptr;
  /// `number` is the system's (ECONNRESET, ...). The element is in the error state.
  std::function<void(int number)> Error = nullptr;
};

/// A connection whose peer has gone is in the error state once nothing more can be sent, so a peer
/// that has only ended its sending still gets its answer. More than 1 MiB waiting on one element,
/// in either direction, is an error.
class Socket final {
 public:
  /// `place` names the element in the error list.
  Socket(std::string place, SocketHandlers handlers);
  /// No event comes any more, not even when it goes inside one of its own handlers.
  ~Socket();
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  /// Port to listen on, 0 to 65535; 0 lets the system choose.
  void SetLocalPort(int port);
  /// While it listens, the real port.
  int LocalPort() const;

  /// Listens on all of the machine's IPv4 addresses. Throws RuntimeError with the system's number.
  void Listen();
  /// Takes the waiting connection; one that the element had is closed. Throws RuntimeError 40006
  /// when there is none of this id.
  void Accept(int64_t requestId);
  /// Ids are never used twice, so that a handler can tell its own connection from a later one on
  /// the same element. 0 without a connection.
  int64_t RequestId() const;

  /// All that has been received so far.
  std::string GetData();
  /// Queues bytes; they leave from the event loop. Throws RuntimeError 40006 without a connection.
  void SendData(const std::string& bytes);
  /// What is queued is dropped, what has left still reaches the peer. Events that wait are dropped.
  void Close();

  SocketState State() const;
  /// Dotted text; empty without a connection.
  std::string RemoteHostIP() const;
  /// Dotted text: of the connection, else the machine's primary address.
  std::string LocalIP() const;

 private:
  struct Impl;
  std::shared_ptr<Impl> impl_;
};

}  // namespace platform
