#include "kit/bracket_line.h"

#include "kit/trouble.h"

namespace sidecar {

namespace {

constexpr char kJoint[] = "][";
constexpr size_t kJointSize = 2;

[[noreturn]] void Fail(const std::string& words) {
  throw CannotSend({"broken command line: " + words, Trouble::BrokenLine, ""});
}

/// The parts of `text` between the joints.
std::vector<std::string> Split(const std::string& text) {
  std::vector<std::string> parts;
  size_t from = 0;
  for (size_t at; (at = text.find(kJoint, from)) != std::string::npos; from = at + kJointSize) {
    parts.push_back(text.substr(from, at - from));
  }
  parts.push_back(text.substr(from));
  return parts;
}

bool IsMode(const std::string& field) { return field == "T" || field == "F"; }
bool IsLanguage(const std::string& field) { return field == "0" || field == "1" || field == "2"; }

}  // namespace

LineEnd ReadLineEnd(const std::string& line) {
  const size_t length = sizeof "][T][0]" - 1;
  if (line.size() < length) return {};
  const std::vector<std::string> parts = Split(line.substr(line.size() - length, length - 1));
  if (parts.size() != 3 || !IsMode(parts[1]) || !IsLanguage(parts[2])) return {};
  return {parts[1] == "T" ? Mode::Test : Mode::Event, parts[2][0] - '0'};
}

std::vector<std::string> BracketFields(const std::string& line, size_t count) {
  if (!line.starts_with('[')) Fail("no bracket at its start");
  if (!line.ends_with(']')) Fail("no bracket at its end");
  std::vector<std::string> fields = Split(line.substr(1, line.size() - 2));
  if (fields.size() != count) {
    Fail(std::to_string(fields.size()) + " fields instead of " + std::to_string(count));
  }
  if (!IsMode(fields[count - 2])) Fail("the mode is neither T nor F");
  if (!IsLanguage(fields[count - 1])) Fail("the language is none of 0, 1 and 2");
  return fields;
}

}  // namespace sidecar
