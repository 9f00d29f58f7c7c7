#include "web/server/request.h"

#include "platform/errors/runtime_error.h"
#include "platform/text/text.h"

namespace varek {

namespace {

constexpr char kGet[] = "GET";
constexpr char kPost[] = "POST";

/// In any case of letters, as the file is looked up.
bool NamesAPage(const std::string& name) {
  return platform::SameIgnoringCase(platform::LastCharacters(name, 3), "htm") ||
         platform::SameIgnoringCase(platform::LastCharacters(name, 4), "html");
}

}  // namespace

bool IsGet(const std::string& request) { return request.starts_with(kGet); }
bool IsPost(const std::string& request) { return request.starts_with(kPost); }

std::string PathOf(const std::string& request) {
  const size_t first = IsGet(request) ? sizeof kGet : sizeof kPost;  // One blank behind the word.
  const size_t end = request.find(' ', first + 1);
  if (end == std::string::npos)
    throw platform::RuntimeError(platform::errors::kInvalidCall, "a path without an end");
  return request.substr(first, end - first);
}

std::optional<std::string> FieldOf(const std::string& request, const std::string& marker) {
  const size_t position = request.find(marker);
  if (position == std::string::npos) return {};
  return request.substr(position + marker.size());
}

bool AwaitsBody(const std::string& request) {
  return IsPost(request) && request.find("T1") == std::string::npos &&
         request.find("T2") == std::string::npos;
}

bool IsGuarded(const std::string& request) {
  if (!IsGet(request)) return true;
  const std::string path = PathOf(request);
  return path.ends_with("HTM") || path.ends_with("htm") || NamesAPage(FileNameOf(path, ""));
}

std::string FileNameOf(const std::string& path, const std::string& defaultPage) {
  const std::string name = path.empty() || path == "/" ? defaultPage : path.substr(1);
  std::string result;
  for (size_t i = 0; i < name.size(); ++i) {
    if (name[i] == '/') {
      result += '\\';
    } else if (name.compare(i, 2, "..") == 0) {
      i += 2;
    } else {
      result += name[i];
    }
  }
  return result;
}

}  // namespace varek
