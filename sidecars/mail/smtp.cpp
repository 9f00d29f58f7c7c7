#include "mail/smtp.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "kit/secrets.h"
#include "kit/transfer.h"
#include "kit/utf8.h"
#include "mail/base64.h"
#include "platform/text/text.h"

namespace sidecar {

namespace {

constexpr int kPlainPort = 25;
constexpr int kSubmissionPort = 587;
constexpr int kTlsPort = 465;
constexpr size_t kLongestReply = 300;

/// How the connection is protected.
struct Protection {
  int defaultPort;
  bool fromTheStart;  ///< TLS before the first reply, without STARTTLS
  long upgrade;       ///< libcurl's level for STARTTLS
  bool checked;       ///< the certificate is
};

/// A mail that carries no login is better sent to an unknown server, or unprotected, than not at
/// all; a password goes to a known server only.
Protection ProtectionFor(const MailSettings& settings, int port) {
  const bool login = settings.HasLogin();
  switch (settings.security) {
    case Security::StartTls:
      return {kSubmissionPort, false, CURLUSESSL_ALL, true};
    case Security::Tls:
      return {kTlsPort, true, CURLUSESSL_ALL, true};
    case Security::None:
      return {kPlainPort, false, CURLUSESSL_NONE, false};
    case Security::Auto:
      break;
  }
  return {kPlainPort, port == kTlsPort, login ? CURLUSESSL_ALL : CURLUSESSL_TRY, login};
}

std::string Url(const MailServer& server, const Protection& protection) {
  const int port = server.port != 0 ? server.port : protection.defaultPort;
  return (protection.fromTheStart ? "smtps://" : "smtp://") + server.host + ":" +
         std::to_string(port);
}

/// The last reply line of the server before that to QUIT.
class LastReply {
 public:
  void Hear(std::string_view line) {
    if (!line.starts_with("221")) text_ = platform::Trim(OneLine(line));
  }
  bool IsTemporary() const { return text_.starts_with('4'); }
  bool IsLasting() const { return text_.starts_with('5'); }
  /// The server waits for the mail itself, and has not said anything since.
  bool IsGoAhead() const { return text_.starts_with("354"); }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

extern "C" size_t HearReply(char* bytes, size_t, size_t count, void* reply) {
  static_cast<LastReply*>(reply)->Hear({bytes, count});
  return count;
}

/// Hands out the next piece of what is left to send.
extern "C" size_t GivePiece(char* buffer, size_t, size_t room, void* rest) {
  auto& left = *static_cast<std::string_view*>(rest);
  const size_t count = left.copy(buffer, room);
  left.remove_prefix(count);
  return count;
}

void SetProtection(Transfer& transfer, const Protection& protection, const MailSettings& settings) {
  transfer.Set(CURLOPT_USE_SSL, protection.upgrade);
  transfer.Set(CURLOPT_SSL_VERIFYPEER, protection.checked ? 1L : 0L);
  transfer.Set(CURLOPT_SSL_VERIFYHOST, protection.checked ? 2L : 0L);
  if (!settings.ca.empty()) transfer.Set(CURLOPT_CAINFO, settings.ca.c_str());
}

void SetLogin(Transfer& transfer, const MailSettings& settings) {
  if (!settings.HasLogin()) return;
  transfer.Set(CURLOPT_USERNAME, settings.user.c_str());
  transfer.Set(CURLOPT_PASSWORD, settings.password.c_str());
}

/// A server might repeat what it was given.
std::vector<std::string> Secrets(const MailSettings& settings) {
  const std::string plainLogin = '\0' + settings.user + '\0' + settings.password;
  return {Base64(plainLogin), Base64(settings.password), settings.password};
}

/// `text` as it may be logged and shown.
std::string Safe(const std::string& text, const MailSettings& settings) {
  const bool secret = !settings.password.empty();
  return Shortened(Masked(text, secret ? Secrets(settings) : std::vector<std::string>()),
                   kLongestReply);
}

Reason WhyNot(Reason reason, const LastReply& reply, const MailSettings& settings) {
  if (!reply.Text().empty()) reason.words += "; the server's last words: " + reply.Text();
  reason.words = Safe(reason.words, settings);
  if (!reply.IsTemporary() && !reply.IsLasting()) return reason;
  if (reason.trouble != Trouble::LoginRefused) reason.trouble = Trouble::Answer;
  reason.detail = Safe(reply.Text(), settings);
  return reason;
}

/// `handedOver`: the whole mail has left.
Attempt Judge(CURLcode code, Reason reason, bool handedOver, const LastReply& reply,
              const MailSettings& settings) {
  if (code == CURLE_OK) return {Result::Sent, {}};
  const bool unanswered = handedOver && reply.IsGoAhead() && reason.trouble == Trouble::NoAnswer;
  if (unanswered) reason = {reason.words + "; it may arrive", Trouble::NoAnswerInTheEnd, ""};
  const bool lasting = reply.IsLasting() || (IsLasting(code) && !reply.IsTemporary());
  return {lasting || unanswered ? Result::Refused : Result::Failed,
          WhyNot(std::move(reason), reply, settings)};
}

}  // namespace

Attempt SendMail(const Envelope& envelope, const MailSettings& settings,
                 const std::string& message) {
  const Protection protection = ProtectionFor(settings, envelope.server.port);
  LastReply reply;
  std::string_view rest = message;
  const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> recipients(
      curl_slist_append(nullptr, envelope.recipient.c_str()), curl_slist_free_all);
  Transfer transfer(settings.delivery.timeout);
  transfer.Set(CURLOPT_URL, Url(envelope.server, protection).c_str());
  transfer.Set(CURLOPT_PROTOCOLS_STR, "smtp,smtps");
  transfer.Set(CURLOPT_PROXY, "");  // What is set for web pages leads no mail anywhere.
  SetProtection(transfer, protection, settings);
  SetLogin(transfer, settings);
  transfer.Set(CURLOPT_MAIL_FROM, envelope.sender.c_str());
  transfer.Set(CURLOPT_MAIL_RCPT, recipients.get());
  transfer.Set(CURLOPT_UPLOAD, 1L);
  transfer.Set(CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(message.size()));
  transfer.Set(CURLOPT_READFUNCTION, GivePiece);
  transfer.Set(CURLOPT_READDATA, static_cast<void*>(&rest));
  transfer.Set(CURLOPT_HEADERFUNCTION, HearReply);
  transfer.Set(CURLOPT_HEADERDATA, static_cast<void*>(&reply));
  const CURLcode code = transfer.Perform();
  return Judge(code, transfer.Why(code), rest.empty(), reply, settings);
}

}  // namespace sidecar
