// The two route tables of the web console: which handler a path runs before its file goes out.
#pragma once

#include <string>

#include "web/pages/page_values.h"

namespace varek {

/// Runs the handler of a GET path, if it has one. Its errors propagate and end the request.
void RunGetRoute(const std::string& path);

/// Runs the handler of a POST path, which may leave `values` for the page. False when the path
/// wants a field that `request` lacks: such a request gets no answer. Errors propagate.
bool RunPostRoute(const std::string& path, const std::string& request, PageValues& values);

}  // namespace varek
