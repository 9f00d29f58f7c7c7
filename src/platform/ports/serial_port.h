// A serial port that is read by polling: 9600 baud, no parity, eight bits, one stop bit, no flow
// control. Numbers 1 to 16 are names of devices, see SerialDevice.
#pragma once

#include <memory>
#include <string>

namespace platform {

/// The device behind COM port `number`: the link com<number> in the folder of VAREK_COM_DIR, or in
/// /dev/varek when that exists; else ttyS0 to ttyS7 for 1 to 8 and ttyUSB0 to ttyUSB7 for 9 to 16.
std::string SerialDevice(int number);

class SerialPort final {
 public:
  SerialPort();
  ~SerialPort();
  SerialPort(SerialPort&&) noexcept;
  SerialPort& operator=(SerialPort&&) noexcept;

  /// Points the port at another device; REQUIRES that it is closed. 0 is no device.
  void SetCommPort(int number);
  int CommPort() const;

  bool PortOpen() const;
  /// Takes the device exclusively; the lock of a process that has gone is no hindrance. Throws
  /// RuntimeError 8002 when it can't be opened; its text names the process that holds the device.
  void Open();
  void Close();

  /// Hands `bytes` to the device. Throws RuntimeError 8018 when the port is closed, also because
  /// its device has gone, and 57 when the device takes nothing any more.
  void Output(const std::string& bytes);

  /// How many bytes Input would give now.
  size_t InBufferCount() const;

  /// What has arrived since the last call, at most 4 KiB; empty when nothing has or the port is
  /// closed, so that a device that has gone counts as a silent one.
  std::string Input();

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
