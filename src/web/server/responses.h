// The exact bytes of the answers: the fixed header blocks and which file gets which. Do not change
// them, not even spelling, spacing and dates: clients may depend on every byte.
#pragma once

#include <string>

namespace varek {

/// The answer to a request for what does not exist.
const std::string& BadRequest();

/// The answer that carries a page.
std::string PageResponse(const std::string& text);

/// What goes out in front of the bytes of file `name` that is no page; empty for the many kinds
/// that go out bare. It follows from the end of the name, in lower case only.
std::string FileHeader(const std::string& name);

}  // namespace varek
