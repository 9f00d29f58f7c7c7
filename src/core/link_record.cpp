#include "core/link_record.h"

namespace varek {

LinkRecord Link;

void SelectUsb() {
  Link.MSComm1.Close();
  Link.LinkType = kUsbLink;
  Link.PortNumber = kUsbPort;
}

void SelectSerial(int16_t port) {
  Link.LinkType = kSerialLink;
  Link.PortNumber = port;
  Link.MSComm1.Close();
  Link.MSComm1.SetCommPort(port);
}

}  // namespace varek
