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
  PointPollPort(port);
}

void PointPollPort(int number) {
  if (Link.MSComm1.CommPort() == number) return;
  Link.MSComm1.Close();
  Link.MSComm1.SetCommPort(number);
}

}  // namespace varek
