#include "kit/transfer.h"

#include "platform/runtime_error.h"

namespace sidecar {

using platform::RuntimeError;

namespace {

/// A server that answers each word in time may be slow on the whole: one that checks a mail before
/// it accepts it must not be given the mail again.
constexpr long kWholeTransfer = 4;

}  // namespace

Transfer::Transfer(int timeout) : handle_(curl_easy_init()) {
  if (!handle_) throw RuntimeError(platform::errors::kInternal, "libcurl can't be started");
  curl_easy_setopt(handle_, CURLOPT_ERRORBUFFER, words_.data());
  for (const CURLoption wait : {CURLOPT_CONNECTTIMEOUT, CURLOPT_SERVER_RESPONSE_TIMEOUT}) {
    curl_easy_setopt(handle_, wait, static_cast<long>(timeout));
  }
  curl_easy_setopt(handle_, CURLOPT_TIMEOUT, static_cast<long>(timeout) * kWholeTransfer);
}

Transfer::~Transfer() { curl_easy_cleanup(handle_); }

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

std::string Transfer::Words(CURLcode code) const {
  return words_[0] ? words_.data() : curl_easy_strerror(code);
}

bool IsLasting(CURLcode code) {
  switch (code) {
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_URL_MALFORMAT:
    case CURLE_USE_SSL_FAILED:
    case CURLE_LOGIN_DENIED:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_BAD_FUNCTION_ARGUMENT:
      return true;
    default:
      return false;
  }
}

}  // namespace sidecar
