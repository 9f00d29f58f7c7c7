// Why a message could not be sent, in two forms: in English words for the log, and as one of the
// numbered texts for the person who waits for the result of a test.
#pragma once

#include <stdexcept>
#include <string>

#include "texts/text_numbers.h"

namespace sidecar {

/// Each is the number of its text.
enum class Trouble : size_t {
  Other = varek::texts::kTroubleOther,
  BrokenLine = varek::texts::kTroubleBrokenLine,
  SettingsFile = varek::texts::kTroubleSettingsFile,
  NoServer = varek::texts::kTroubleNoServer,
  WrongServer = varek::texts::kTroubleWrongServer,
  NoSender = varek::texts::kTroubleNoSender,
  WrongSender = varek::texts::kTroubleWrongSender,
  NoRecipient = varek::texts::kTroubleNoRecipient,
  WrongRecipient = varek::texts::kTroubleWrongRecipient,
  NoNumber = varek::texts::kTroubleNoNumber,
  UnknownServer = varek::texts::kTroubleUnknownServer,
  Unreachable = varek::texts::kTroubleUnreachable,
  NoEncryption = varek::texts::kTroubleNoEncryption,
  UntrustedServer = varek::texts::kTroubleUntrustedServer,
  LoginRefused = varek::texts::kTroubleLoginRefused,
  NoAnswer = varek::texts::kTroubleNoAnswer,
  NoAnswerInTheEnd = varek::texts::kTroubleNoAnswerInTheEnd,
  ConnectionLost = varek::texts::kTroubleConnectionLost,
  Answer = varek::texts::kTroubleAnswer
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
