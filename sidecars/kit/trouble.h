// Why a message could not be sent, in two forms: in English words for the log, and as one of the
// numbered texts for the person who waits for the result of a test.
#pragma once

#include <stdexcept>
#include <string>

namespace sidecar {

/// The numbers of the texts.
enum class Trouble {
  Other = 328,
  BrokenLine,
  SettingsFile,
  NoServer,
  WrongServer,
  NoSender,
  WrongSender,
  NoRecipient,
  WrongRecipient,
  NoNumber,
  UnknownServer,
  Unreachable,
  NoEncryption,
  UntrustedServer,
  LoginRefused,
  NoAnswer,
  NoAnswerInTheEnd,
  ConnectionLost,
  Answer
};

struct Reason {
  std::string words;  ///< for the log; nothing secret
  Trouble trouble = Trouble::Other;
  /// What stands behind the person's text, as it is in every language: a place in a file, what a
  /// server has answered.
  std::string detail;
};

/// What makes a message impossible before it is tried.
class CannotSend final : public std::runtime_error {
 public:
  explicit CannotSend(Reason reason)
      : std::runtime_error(reason.words), reason_(std::move(reason)) {}
  const Reason& Why() const { return reason_; }

 private:
  Reason reason_;
};

}  // namespace sidecar
