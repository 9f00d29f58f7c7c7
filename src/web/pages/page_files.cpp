#include "web/pages/page_files.h"

#include <filesystem>
#include <fstream>

#include "core/data_center.h"
#include "platform/errors/runtime_error.h"
#include "platform/system/paths.h"
#include "platform/time/events.h"

namespace varek {

namespace fs = std::filesystem;

namespace {

/// Of a file name; what is longer exists nowhere and would only cost time to look up.
constexpr size_t kLongestName = 1000;

[[noreturn]] void Refuse(const std::string& why) {
  throw platform::RuntimeError(platform::errors::kPathNotFound, why);
}

/// Below `folder`, wherever links lead.
bool LiesIn(const std::string& path, const std::string& folder) {
  std::error_code error;
  const fs::path realFolder = fs::canonical(folder, error);
  if (error) return false;
  const fs::path realPath = fs::weakly_canonical(path, error);
  if (error) return false;
  const fs::path inside = realPath.lexically_relative(realFolder);
  return !inside.empty() && *inside.begin() != "..";
}

}  // namespace

bool IsPage(const std::string& name) { return name.ends_with("htm") || name.ends_with("html"); }

std::string ReadSource(const std::string& fullName) {
  platform::DoEvents();
  return platform::ReadWholeFile(fullName);
}

std::string ReplaceFirst(std::string& text, const std::string& marker,
                         const std::string& replacement) {
  const size_t position = text.find(marker);
  if (position == std::string::npos) {
    text = "Null";
    return {};
  }
  std::string result = text;
  return result.replace(position, marker.size(), replacement);
}

std::string WebPath(const std::string& name) {
  // An empty folder would make the program folder, with the passwords in it, the web's.
  if (DataCenter.settings.WebLanguageFolder.empty()) Refuse("no language folder");
  if (name.size() > kLongestName || name.find('\0') != std::string::npos) Refuse("no file name");
  // A name that ends in a folder would find the file before it, under a name that is no page's.
  if (name.ends_with('\\') || name.ends_with("\\.")) Refuse("a folder's name");
  const std::string folder = platform::ProgramPath("\\" + DataCenter.settings.WebLanguageFolder);
  std::string path = platform::ProgramPath("\\" + DataCenter.settings.WebLanguageFolder + name);
  if (!LiesIn(path, folder)) Refuse("the name leaves the language folder");
  return path;
}

void WritePage(const std::string& name, const std::string& text) {
  const std::string path = WebPath(name);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file << text << "\r\n";
  file.close();
  if (!file) throw platform::RuntimeError(platform::errors::kPathAccess, path + ": not written");
}

}  // namespace varek
