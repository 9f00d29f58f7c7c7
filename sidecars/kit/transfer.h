// One libcurl transfer: its handle, its time limit, and what its errors mean.
#pragma once

#include <curl/curl.h>

#include <array>
#include <chrono>

#include "kit/trouble.h"

namespace sidecar {

class Transfer final {
 public:
  /// `timeout` in seconds, from the name lookup of the server to the end of the session; the end of
  /// the system may leave less. Throws RuntimeError when libcurl can't start.
  explicit Transfer(int timeout);
  ~Transfer();
  Transfer(const Transfer&) = delete;
  Transfer& operator=(const Transfer&) = delete;

  /// Sets an option; whole numbers must be long. Throws RuntimeError when libcurl does not take it,
  /// so that no transfer goes out with less protection than was asked for.
  template <typename Value>
  void Set(CURLoption option, Value value) {
    Require(curl_easy_setopt(handle_, option, value));
  }

  CURLcode Perform();

  /// The status of the reply to an HTTP request; 0 without one.
  long HttpStatus() const;
  /// True when an HTTP request has gone out: who got it may act on it, whatever is heard of that.
  bool IsHandedOver() const;
  /// What went wrong with `code`.
  Reason Why(CURLcode code) const;

 private:
  static void Require(CURLcode code);
  /// What libcurl asks about once a second; true breaks the transfer off.
  bool IsTimeOver() const;
  static int AskTime(void* transfer, curl_off_t, curl_off_t, curl_off_t, curl_off_t);

  CURL* handle_;
  std::chrono::seconds timeout_;
  std::chrono::steady_clock::time_point start_;
  std::array<char, CURL_ERROR_SIZE> words_{};
};

/// True for failures that the next attempt would meet again: a setting or a certificate is wrong.
bool IsLasting(CURLcode code);

}  // namespace sidecar
