// What must stay out of logs and windows, whatever a server sends back.
#pragma once

#include <string>
#include <vector>

namespace sidecar {

/// `text` with "***" in place of each of `secrets`; empty ones are left out.
std::string Masked(std::string text, const std::vector<std::string>& secrets);

}  // namespace sidecar
