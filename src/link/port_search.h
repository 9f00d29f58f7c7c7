// The search for the unit over all ports.
#pragma once

#include <cstdint>

namespace varek {

/// Looks for the unit on USB, then on COM ports 1 to 16; `port` becomes the number found (800 for
/// USB) and stays as it is when nothing answers or the search is broken off.
void findport(int16_t& port);

/// Breaks off a running search.
void RequestSearchExit();

}  // namespace varek
