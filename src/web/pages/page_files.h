// The files of the web console in the folder of the present language: whole-file reading, the
// template engine that fills in markers, and the generated pages.
#pragma once

#include <string>

namespace varek {

/// Bytes of the file last read. One buffer for all requests.
extern std::string PageBytes;

/// True for the names of pages, "htm" or "html" at their end, in lower case only.
bool IsPage(const std::string& name);

/// Reads a page whole, after other handlers have run once, and runs it through the template engine,
/// as far as that gets. Throws RuntimeError 53 for a missing file.
std::string ReadPage(const std::string& fullName);
/// The same without the engine, for any file.
std::string ReadSource(const std::string& fullName);

/// Fills in the markers. Other handlers run once, at its head. An error (a marker without its end,
/// a division by zero) propagates; `text` is then what was expanded so far.
void ExpandTemplate(std::string& text);

/// `text` with the first `marker` replaced. Without a marker `text` becomes "Null" and the result
/// is empty.
std::string ReplaceFirst(std::string& text, const std::string& marker,
                         const std::string& replacement);

/// Host name of a file in the folder of the present language. Throws RuntimeError 76 when no
/// language folder is chosen, or when the name would leave it.
std::string WebPath(const std::string& name);

/// Writes a generated page: `text` and a line end.
void WritePage(const std::string& name, const std::string& text);

/// What the engine's keys GETSTRTIME and GETENDTIME print; set by makepic.
extern std::string ChartStartTime;
extern std::string ChartEndTime;

/// What the keys Event1 to Event5 and EventTime1 to EventTime5 print; set by getFiveEvent.
extern std::string FiveEventText[5];
extern std::string FiveEventTime[5];

}  // namespace varek
