// Base64 (RFC 4648, section 4).
#pragma once

#include <string>
#include <string_view>

namespace sidecar {

std::string Base64(std::string_view bytes);

}  // namespace sidecar
