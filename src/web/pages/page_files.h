// The files of the web console in the folder of the present language: whole-file reading, and the
// generated pages.
#pragma once

#include <string>

namespace varek {

/// True for the names of pages, "htm" or "html" at their end, in lower case only.
bool IsPage(const std::string& name);

/// Reads a file whole and as it is, after other handlers have run once. Throws RuntimeError 53 for
/// a missing file.
std::string ReadSource(const std::string& fullName);

/// `text` with the first `marker` replaced. Without a marker `text` becomes "Null" and the result
/// is empty.
std::string ReplaceFirst(std::string& text, const std::string& marker,
                         const std::string& replacement);

/// Host name of a file in the folder of the present language. Throws RuntimeError 76 when no
/// language folder is chosen, or when the name would leave it.
std::string WebPath(const std::string& name);

/// Writes a generated page: `text` and a line end.
void WritePage(const std::string& name, const std::string& text);

}  // namespace varek
