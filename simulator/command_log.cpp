#include "simulator/command_log.h"

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <ctime>

namespace simulator {

namespace {

std::string TimeText() {
  using namespace std::chrono;
  const auto now = system_clock::now();
  const std::time_t seconds = system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&seconds, &local);
  char date[32];
  std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", &local);
  const auto millis = duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000;
  char text[48];
  std::snprintf(text, sizeof text, "%s.%03d", date, static_cast<int>(millis));
  return text;
}

std::string Escaped(std::string_view bytes) {
  std::string text;
  for (const unsigned char byte : bytes) {
    if (byte == '\\') {
      text += "\\\\";
    } else if (byte >= 0x20 && byte < 0x7f) {
      text += static_cast<char>(byte);
    } else {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\x%02x", byte);
      text += escape;
    }
  }
  return text;
}

}  // namespace

CommandLog::CommandLog(const std::string& path) {
  if (path.empty()) return;
  if (path == "-") {
    fd_ = STDOUT_FILENO;
    return;
  }
  CreateParentFolder(path);
  file_ = platform::Descriptor(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666));
  if (file_.Number() < 0) ThrowSystemError(path);
  fd_ = file_.Number();
}

void CommandLog::Write(std::string_view command) {
  if (fd_ >= 0) WriteAll(fd_, TimeText() + " " + Escaped(command) + "\n");
}

}  // namespace simulator
