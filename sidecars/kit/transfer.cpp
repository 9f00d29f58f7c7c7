#include "kit/transfer.h"

#include <algorithm>
#include <iterator>

#include "kit/system_end.h"
#include "platform/errors/runtime_error.h"

namespace sidecar {

using platform::RuntimeError;

namespace {

struct Meaning {
  CURLcode code;
  Trouble trouble;
  bool lasting;  ///< the next attempt would meet it again: a setting or a certificate is wrong
};

constexpr Meaning kMeanings[] = {{CURLE_UNSUPPORTED_PROTOCOL, Trouble::Other, true},
                                 {CURLE_URL_MALFORMAT, Trouble::Other, true},
                                 {CURLE_BAD_FUNCTION_ARGUMENT, Trouble::Other, true},
                                 {CURLE_USE_SSL_FAILED, Trouble::NoEncryption, true},
                                 {CURLE_LOGIN_DENIED, Trouble::LoginRefused, true},
                                 {CURLE_PEER_FAILED_VERIFICATION, Trouble::UntrustedServer, true},
                                 {CURLE_SSL_CACERT_BADFILE, Trouble::UntrustedServer, true},
                                 {CURLE_SSL_CONNECT_ERROR, Trouble::NoEncryption, false},
                                 {CURLE_COULDNT_RESOLVE_HOST, Trouble::UnknownServer, false},
                                 {CURLE_COULDNT_RESOLVE_PROXY, Trouble::UnknownServer, false},
                                 {CURLE_COULDNT_CONNECT, Trouble::Unreachable, false},
                                 {CURLE_OPERATION_TIMEDOUT, Trouble::NoAnswer, false},
                                 {CURLE_ABORTED_BY_CALLBACK, Trouble::NoAnswer, false},
                                 {CURLE_SEND_ERROR, Trouble::ConnectionLost, false},
                                 {CURLE_RECV_ERROR, Trouble::ConnectionLost, false},
                                 {CURLE_GOT_NOTHING, Trouble::ConnectionLost, false},
                                 {CURLE_WEIRD_SERVER_REPLY, Trouble::ConnectionLost, false}};

const Meaning& MeaningOf(CURLcode code) {
  static constexpr Meaning kUnknown{CURLE_OK, Trouble::Other, false};
  const auto* found = std::ranges::find(kMeanings, code, &Meaning::code);
  return found == std::end(kMeanings) ? kUnknown : *found;
}

}  // namespace

Transfer::Transfer(int timeout) : handle_(curl_easy_init()), timeout_(timeout) {
  if (!handle_) throw RuntimeError(platform::errors::kInternal, "libcurl can't be started");
  curl_easy_setopt(handle_, CURLOPT_ERRORBUFFER, words_.data());
  curl_easy_setopt(handle_, CURLOPT_TIMEOUT, static_cast<long>(timeout));
  // A name server that doesn't answer would otherwise be waited for at the end.
  curl_easy_setopt(handle_, CURLOPT_QUICK_EXIT, 1L);
  // So QUIT is sent, and its reply awaited, inside the transfer, where the time is checked.
  curl_easy_setopt(handle_, CURLOPT_FORBID_REUSE, 1L);
  curl_easy_setopt(handle_, CURLOPT_NOPROGRESS, 0L);
  curl_easy_setopt(handle_, CURLOPT_XFERINFOFUNCTION, &Transfer::AskTime);
  curl_easy_setopt(handle_, CURLOPT_XFERINFODATA, static_cast<void*>(this));
}

Transfer::~Transfer() { curl_easy_cleanup(handle_); }

CURLcode Transfer::Perform() {
  start_ = std::chrono::steady_clock::now();
  return curl_easy_perform(handle_);
}

bool Transfer::IsTimeOver() const {
  return LastSecondsAreOver() || std::chrono::steady_clock::now() - start_ > timeout_;
}

int Transfer::AskTime(void* transfer, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
  return static_cast<Transfer*>(transfer)->IsTimeOver() ? 1 : 0;
}

void Transfer::Require(CURLcode code) {
  if (code != CURLE_OK) {
    throw RuntimeError(platform::errors::kInvalidCall, curl_easy_strerror(code));
  }
}

long Transfer::HttpStatus() const {
  long status = 0;
  curl_easy_getinfo(handle_, CURLINFO_RESPONSE_CODE, &status);
  return status;
}

bool Transfer::IsHandedOver() const {
  // Not before a proxy has let it through and the connection is protected.
  curl_off_t begun = 0;
  curl_easy_getinfo(handle_, CURLINFO_PRETRANSFER_TIME_T, &begun);
  return begun > 0;
}

Reason Transfer::Why(CURLcode code) const {
  const char* words = words_[0] ? words_.data() : curl_easy_strerror(code);
  if (code == CURLE_ABORTED_BY_CALLBACK)
    words = SystemEnds() ? "left unfinished, since the system ends" : "no answer in time";
  return {words, MeaningOf(code).trouble, ""};
}

bool IsLasting(CURLcode code) { return MeaningOf(code).lasting; }

}  // namespace sidecar
