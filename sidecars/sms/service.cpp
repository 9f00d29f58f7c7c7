#include "sms/service.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "kit/secrets.h"
#include "kit/transfer.h"
#include "kit/utf8.h"
#include "sms/encoding.h"

namespace sidecar {

namespace {

constexpr size_t kMostReply = 64 << 10;
/// The patterns look at the start alone: matching takes stack for each character.
constexpr size_t kReadReply = 1024;
constexpr size_t kMostWords = 300;

constexpr long kTooManyRequests = 429;
constexpr long kUnavailable = 503;

/// What is longer than any reply of a service is cut off, which ends the transfer.
extern "C" size_t TakeReply(char* bytes, size_t, size_t count, void* reply) {
  auto& text = *static_cast<std::string*>(reply);
  const size_t taken = std::min(count, kMostReply - text.size());
  text.append(bytes, taken);
  return taken;
}

/// The only replies that say for sure that nothing was sent, and that it may be asked for again.
bool MayDoBetterLater(long status) { return status == kTooManyRequests || status == kUnavailable; }

std::string Replaced(std::string text, const std::string& part, const std::string& other) {
  for (size_t at = 0; (at = text.find(part, at)) != std::string::npos; at += other.size()) {
    text.replace(at, part.size(), other);
  }
  return text;
}

std::string WithSmallDigits(std::string encoded) {
  for (size_t at = 0; (at = encoded.find('%', at)) != std::string::npos; at += 3) {
    for (const size_t digit : {at + 1, at + 2}) {
      encoded[digit] = static_cast<char>(std::tolower(encoded[digit]));
    }
  }
  return encoded;
}

std::string Html(const std::string& text) {
  return Replaced(Replaced(Replaced(text, "&", "&amp;"), "<", "&lt;"), "\"", "&quot;");
}

/// All ways in which a page or a form writes the text.
std::vector<std::string> Spellings(const std::string& text) {
  const std::string encoded = PercentEncoded(text);
  const std::string form = Replaced(encoded, "%20", "+");
  return {encoded, form, WithSmallDigits(encoded), WithSmallDigits(form), Html(text), text};
}

/// A service may repeat the password in each form that it was given, or that its page needs.
std::string WithoutPassword(const std::string& words, const std::string& password) {
  const std::string latin1 = IsLatin1(password) ? Latin1(password) : "";
  std::vector<std::string> secrets = Spellings(password);
  std::ranges::copy(Spellings(latin1), std::back_inserter(secrets));
  return Masked(words, secrets);
}

/// What the service says of its error, as far as that can be told from the rest. The password is
/// masked before anything is cut: a part of it would not be found.
std::string ErrorWords(const Gateway& gateway, const std::string& reply,
                       const std::string& password) {
  const std::string safe = WithoutPassword(reply, password).substr(0, kReadReply);
  std::smatch found;
  const bool known = gateway.error && std::regex_search(safe, found, *gateway.error);
  return Shortened(OneLine(known ? found.str() : safe), kMostWords);
}

Attempt Judge(const Gateway& gateway, long status, const std::string& reply,
              const std::string& password) {
  const bool success = status >= 200 && status < 300;
  const std::string start = reply.substr(0, kReadReply);
  if (success && std::regex_search(start, *gateway.good)) return {Result::Sent, {}};
  const std::string words =
      "HTTP " + std::to_string(status) + ": " + ErrorWords(gateway, reply, password);
  return {MayDoBetterLater(status) ? Result::Failed : Result::Refused,
          {words, Trouble::Answer, words}};
}

/// A transfer that brought no reply.
Attempt JudgeSilence(CURLcode code, const Transfer& transfer, const std::string& password) {
  Reason reason = transfer.Why(code);
  reason.words = WithoutPassword(reason.words, password);
  if (!transfer.IsHandedOver()) return {IsLasting(code) ? Result::Refused : Result::Failed, reason};
  return {Result::Refused,
          {reason.words + "; it may have been sent", Trouble::NoAnswerInTheEnd, ""}};
}

void SetRequest(Transfer& transfer, const Gateway& gateway, const std::string& parameters) {
  const char joint = gateway.address.find('?') == std::string::npos ? '?' : '&';
  transfer.Set(CURLOPT_PROTOCOLS_STR, "http,https");
  if (gateway.post) {
    transfer.Set(CURLOPT_URL, gateway.address.c_str());
    transfer.Set(CURLOPT_POSTFIELDSIZE, static_cast<long>(parameters.size()));
    transfer.Set(CURLOPT_COPYPOSTFIELDS, parameters.c_str());
  } else {
    transfer.Set(CURLOPT_URL, (gateway.address + joint + parameters).c_str());
  }
}

}  // namespace

Attempt SendSms(const Gateway& gateway, const SmsMessage& message) {
  std::string reply;
  Transfer transfer(gateway.delivery.timeout);
  SetRequest(transfer, gateway, RequestParameters(gateway, message));
  transfer.Set(CURLOPT_WRITEFUNCTION, TakeReply);
  transfer.Set(CURLOPT_WRITEDATA, static_cast<void*>(&reply));
  const CURLcode code = transfer.Perform();
  // A reply that is there counts, however the connection ended: a second message costs money.
  const long status = transfer.HttpStatus();
  if (code != CURLE_OK && status == 0) return JudgeSilence(code, transfer, message.password);
  return Judge(gateway, status, reply, message.password);
}

}  // namespace sidecar
