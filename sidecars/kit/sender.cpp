#include "kit/sender.h"

#include <string.h>

#include "kit/bracket_line.h"
#include "kit/system_end.h"
#include "kit/texts.h"
#include "kit/utf8.h"
#include "platform/desktop/message_box.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "platform/toolkit/application.h"
#include "views/kit/windows/message_window.h"

namespace sidecar {

namespace {

/// What is longer does not help the person in front of the box.
constexpr size_t kShownCharacters = 500;

std::string FileOf(const Sender& sender, const std::string& ending) {
  return platform::ProgramPath("\\" + sender.name + ending);
}

Attempt Send(const Sender& sender, const std::string& line, Mode mode) {
  const LogFile log(FileOf(sender, ".log"));
  const auto refused = [&](const Reason& reason) -> Attempt {
    log.Add("not sent: " + reason.words);
    return {Result::Refused, reason};
  };
  try {
    const std::vector<std::string> fields = BracketFields(line, sender.fieldCount);
    return Deliver(sender.prepare(fields, FileOf(sender, ".conf"), log), mode, log);
  } catch (const CannotSend& error) {
    return refused(error.Why());
  } catch (const platform::RuntimeError& error) {
    return refused({error.what(), Trouble::Other, ""});
  }
}

/// The reason in the person's language; in the log's words where the table does not have it.
std::string ReasonText(const Sender& sender, const Reason& reason, int language) {
  const std::string text = Text(static_cast<size_t>(reason.trouble), language);
  if (text.empty()) return reason.words;
  if (reason.trouble == Trouble::Other) return text + "\n" + sender.name + ".log";
  return reason.detail.empty() ? text : text + "\n" + reason.detail;
}

void Show(const Sender& sender, const Attempt& attempt, int language) {
  const bool sent = attempt.result == Result::Sent;
  std::string text = Text(sender.firstText + (sent ? 1 : 2), language);
  if (!sent) {
    text += "\n\n" + Shortened(ReasonText(sender, attempt.reason, language), kShownCharacters);
  }
  platform::MessageBox(
      text, Text(sender.firstText, language),
      sent ? platform::MessageIcon::Information : platform::MessageIcon::Exclamation);
}

}  // namespace

int RunSender(const Sender& sender, int argc, char** argv) {
  ExpectSystemEnd();
  const std::string line = argc == 2 ? argv[1] : "";
  // It holds a password, which other accounts could read in the list of processes for ten minutes.
  if (argc == 2) explicit_bzero(argv[1], line.size());
  const LineEnd end = ReadLineEnd(line);
  const Attempt attempt = Send(sender, line, end.mode);
  const int status = attempt.result == Result::Sent ? 0 : 1;
  if (end.mode == Mode::Test && !SystemEnds()) {
    platform::Application application(argc, argv);
    application.OnStopSignal([=] { platform::EndProcess(status); });
    varek::DressMessageBoxes([&end] { return Text(varek::texts::kNoticeClose, end.language); });
    Show(sender, attempt, end.language);
  }
  return status;
}

}  // namespace sidecar
