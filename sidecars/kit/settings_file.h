// Settings that a person writes by hand: "key = value" lines, sections in brackets, comments from a
// number sign at the start of a line. Blanks around keys and values do not count. Errors name the
// file and the line but no value, which may be a password.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace sidecar {

/// What takes the value of a key; throws RuntimeError with words when it can't be used.
using SettingReaders = std::map<std::string, std::function<void(const std::string& value)>>;

class SettingsFile final {
 public:
  /// Reads `path`; a file that does not exist counts as empty. Throws RuntimeError when it can't be
  /// read and CannotSend when a line has no meaning.
  explicit SettingsFile(const std::string& path);

  bool HasSection(const std::string& section) const;

  /// Gives each line of `section` (empty: those ahead of the first section) to its key's reader, in
  /// the order of the file. Throws CannotSend for a key without one, or with a value that its
  /// reader does not take.
  void Read(const std::string& section, const SettingReaders& readers) const;

 private:
  struct Setting {
    int line;
    std::string key;
    std::string value;
  };

  void ReadLine(int line, const std::string& text);
  [[noreturn]] void Fail(int line, const std::string& words) const;

  std::string name_;
  std::string section_;  ///< that the lines being read belong to
  std::map<std::string, std::vector<Setting>> sections_;
};

/// A whole number from `least` to `most`; throws RuntimeError for anything else.
int WholeNumber(const std::string& text, int least, int most);

}  // namespace sidecar
