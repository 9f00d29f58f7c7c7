#include "kit/settings_file.h"

#include <charconv>
#include <filesystem>
#include <sstream>

#include "kit/trouble.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"

namespace sidecar {

using platform::RuntimeError;
namespace errors = platform::errors;

namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

std::string Trimmed(const std::string& text) {
  constexpr char kBlanks[] = " \t\r";
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string FileText(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::exists(path, error) && !error) return "";
  std::string text = platform::ReadWholeFile(path);
  if (text.starts_with(kByteOrderMark)) text.erase(0, sizeof kByteOrderMark - 1);
  return text;
}

}  // namespace

SettingsFile::SettingsFile(const std::string& path)
    : name_(std::filesystem::path(path).filename().string()) {
  std::istringstream lines(FileText(path));
  std::string text;
  for (int line = 1; std::getline(lines, text); ++line) ReadLine(line, Trimmed(text));
}

void SettingsFile::ReadLine(int line, const std::string& text) {
  if (text.empty() || text.starts_with('#')) return;
  if (text.starts_with('[')) {
    if (!text.ends_with(']')) Fail(line, "a section's name ends with a bracket");
    section_ = Trimmed(text.substr(1, text.size() - 2));
    if (!sections_.try_emplace(section_).second) Fail(line, "the section stands there twice");
    return;
  }
  const size_t sign = text.find('=');
  if (sign == std::string::npos) Fail(line, "neither a section nor key = value");
  sections_[section_].push_back(
      {line, Trimmed(text.substr(0, sign)), Trimmed(text.substr(sign + 1))});
}

bool SettingsFile::HasSection(const std::string& section) const {
  return sections_.contains(section);
}

void SettingsFile::Read(const std::string& section, const SettingReaders& readers) const {
  if (!HasSection(section)) return;
  for (const Setting& setting : sections_.at(section)) {
    const auto reader = readers.find(setting.key);
    if (reader == readers.end()) Fail(setting.line, "there is no such key");
    try {
      reader->second(setting.value);
    } catch (const RuntimeError& error) {
      Fail(setting.line, setting.key + ": " + error.what());
    }
  }
}

void SettingsFile::Fail(int line, const std::string& words) const {
  const std::string number = std::to_string(line);
  throw CannotSend(
      {name_ + ", line " + number + ": " + words, Trouble::SettingsFile, name_ + ":" + number});
}

int WholeNumber(const std::string& text, int least, int most) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, number);
  if (read.ec == std::errc() && read.ptr == end && number >= least && number <= most) return number;
  throw RuntimeError(errors::kInvalidCall, "a whole number from " + std::to_string(least) + " to " +
                                               std::to_string(most) + " is needed");
}

}  // namespace sidecar
