// The web console's server: one listening socket and the connections that it has accepted. A
// request is matched by searching its raw text, its handler runs, a file of the language folder
// goes out, and the connection is closed.
//
// A request is not atomic: other handlers run in the middle of it, another request among them. Its
// connection may then be gone, given to another browser, or the console may have been stopped; so
// every step that follows asks first.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/ports/socket.h"
#include "platform/time/timers.h"
#include "web/pages/page_values.h"

namespace varek {

/// The server as a form without a window.
class Form8 final {
 public:
  static constexpr int kNumber = 8;

  Form8();
  ~Form8();

  /// Listens on WebPort, and says in the dashboard's list whether it could. A port that can't be
  /// had is tried again every minute.
  void Start();
  /// Closes the listener and every connection.
  void CloseAll();

  /// The highest index of a connection so far.
  int SocketCount() const { return static_cast<int>(elements_.size()) - 1; }
  /// The listener is 0, connections follow. Throws RuntimeError 9 for an index that is not loaded.
  platform::Socket& Winsock1(int index) const;

  void ApplyLanguage();

 private:
  /// One request on its way. `connection` tells its own connection from a later one on `index`.
  struct Request {
    int index;
    int64_t connection;
    std::string text;
    std::shared_ptr<PageValues> values;  ///< the console's; the request may outlive it
    bool isJoined = false;               ///< with a head that came before
  };

  /// A socket, and what is known of the connection that it has at present.
  struct Element {
    std::unique_ptr<platform::Socket> socket;
    std::string RequestPath = {};
    std::string PendingPost = {};  ///< head of a POST whose fields are still to come
    int64_t beginning = 0;         ///< tick count
    bool hasRequest = false;       ///< a complete one
  };

  static bool IsStillThere(const Request& request);
  static bool LetOthersRun(const Request& request);

  void Listen();
  void AnnounceAddress() const;
  void TryPortAgain();
  void LoadSocket(int index);
  Element& At(int index) { return elements_[static_cast<size_t>(index)]; }
  const Element& At(int index) const { return elements_[static_cast<size_t>(index)]; }
  int FirstClosed() const;
  bool GivesWay(int index) const;
  int OldestThatGivesWay() const;
  int FreeSocket();
  void Accept(int index, int64_t requestId);
  void Close(int index);
  /// RequestPath of a connection; throws RuntimeError 9 beyond the last place.
  std::string& PathAt(int index);

  void Winsock1_ConnectionRequest(int index, int64_t requestId);
  void Winsock1_DataArrival(int index);
  void Winsock1_SendComplete(int index);
  void Winsock1_Error(int index, int number);
  void Timer1_Timer();

  bool TakeRequest(Request& request);
  void AwaitMore(const Request& request);
  void DetectLogin(const Request& request);
  void LogIn(const std::string& address);
  bool IsInSession(const Request& request) const;
  bool MayHave(const Request& request) const;
  bool RunHandler(const Request& request);
  void Serve(const Request& request);
  void SendFile(const Request& request, const std::string& name);

  std::string loginText_;
  std::vector<Element> elements_;  ///< the listener first
  const std::shared_ptr<PageValues> values_ = std::make_shared<PageValues>();
  platform::Timer Timer1;
  platform::Timer portTimer_;
};

/// The one instance while it is loaded, else nullptr.
Form8* LoadedConsole();

}  // namespace varek
