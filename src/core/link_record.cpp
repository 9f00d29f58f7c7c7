#include "core/link_record.h"

namespace varek {

LinkRecord Link;

namespace {

/// What came from the port says nothing of the next one.
void LeavePollPort() {
  Link.MSComm1.Close();
  Link.StatusAccepted = false;
}

}  // namespace

void SelectUsb() {
  LeavePollPort();
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
  LeavePollPort();
  Link.MSComm1.SetCommPort(number);
}

}  // namespace varek
