// The text of a request, read by searching it: there are no headers and no lengths here, only the
// first word, the path behind it, and fields that reach to the end of the text.
#pragma once

#include <optional>
#include <string>

namespace varek {

/// By the first word of the request.
bool IsGet(const std::string& request);
bool IsPost(const std::string& request);

/// The path of a request that begins with GET or POST, with its query. Throws RuntimeError 5 when
/// no blank ends it.
std::string PathOf(const std::string& request);

/// Everything behind the first `marker` ("T1="), up to the end of the request and wherever in it
/// the marker stands; nothing when there is none.
std::optional<std::string> FieldOf(const std::string& request, const std::string& marker);

/// True for the first segment of a POST whose fields are still to come.
bool AwaitsBody(const std::string& request);

/// True when only a logged-in browser may have the answer: everything but a GET of a file that is
/// no page, neither by its path nor by the file that the path turns into. Throws RuntimeError 5 as
/// PathOf does.
bool IsGuarded(const std::string& request);

/// The file that `path` names, below the language folder, with backslashes. Two dots fall out
/// together with the character behind them. An empty path or "/" names `defaultPage`.
std::string FileNameOf(const std::string& path, const std::string& defaultPage);

}  // namespace varek
