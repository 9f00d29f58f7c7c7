#include "link/usb_link.h"

namespace varek {

const std::string kNotLink = "Not Link";

UsbRecord Usb;

// Empty entries: the transport is still to be built. Until then they answer as with no device.

void Action() {}

std::string SentCommand(const std::string&) { return kNotLink; }

}  // namespace varek
