// One libcurl transfer: its handle, its time limit, and its error in words.
#pragma once

#include <curl/curl.h>

#include <array>
#include <string>

namespace sidecar {

class Transfer final {
 public:
  /// `timeout` in seconds, for the whole transfer. Throws RuntimeError when libcurl can't start.
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

  CURLcode Perform() { return curl_easy_perform(handle_); }

  /// The status of the reply to an HTTP request; 0 without one.
  long HttpStatus() const;
  /// What went wrong with `code`.
  std::string Words(CURLcode code) const;

 private:
  static void Require(CURLcode code);

  CURL* handle_;
  std::array<char, CURL_ERROR_SIZE> words_{};
};

/// True for failures that the next attempt would meet again: a setting or a certificate is wrong.
bool IsLasting(CURLcode code);

}  // namespace sidecar
