#include "kit/sender.h"

#include <string.h>

#include "kit/bracket_line.h"
#include "kit/texts.h"
#include "kit/utf8.h"
#include "platform/application.h"
#include "platform/message_box.h"
#include "platform/paths.h"
#include "platform/runtime_error.h"

namespace sidecar {

namespace {

/// What is longer does not help the person in front of the box.
constexpr size_t kShownCharacters = 500;

std::string FileOf(const Sender& sender, const std::string& ending) {
  return platform::ProgramPath("\\" + sender.name + ending);
}

Attempt Send(const Sender& sender, const std::string& line, Mode mode) {
  const LogFile log(FileOf(sender, ".log"));
  try {
    const std::vector<std::string> fields = BracketFields(line, sender.fieldCount);
    return Deliver(sender.prepare(fields, FileOf(sender, ".conf"), log), mode, log);
  } catch (const platform::RuntimeError& error) {
    log.Add(std::string("not sent: ") + error.what());
    return {Result::Refused, error.what()};
  }
}

void Show(const Sender& sender, const Attempt& attempt, int language) {
  const bool sent = attempt.result == Result::Sent;
  std::string text = Text(sender.firstText + (sent ? 1 : 2), language);
  if (!sent) text += "\n\n" + Shortened(attempt.words, kShownCharacters);
  platform::MessageBox(text, Text(sender.firstText, language),
                       sent ? platform::MessageIcon::None : platform::MessageIcon::Exclamation);
}

}  // namespace

int RunSender(const Sender& sender, int argc, char** argv) {
  const std::string line = argc == 2 ? argv[1] : "";
  // It holds a password, which other accounts could read in the list of processes for ten minutes.
  if (argc == 2) explicit_bzero(argv[1], line.size());
  const LineEnd end = ReadLineEnd(line);
  const Attempt attempt = Send(sender, line, end.mode);
  if (end.mode == Mode::Test) {
    const platform::Application application(argc, argv);
    Show(sender, attempt, end.language);
  }
  return attempt.result == Result::Sent ? 0 : 1;
}

}  // namespace sidecar
