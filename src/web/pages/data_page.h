// The page with the samples of one hour as a table, "Mundata.htm".
#pragma once

#include <string>

namespace varek {

/// Writes the page for the day and hour in `value`, what stands behind "T1=" in the request; a
/// value without its separators does nothing.
void DataRequest(const std::string& value);

}  // namespace varek
