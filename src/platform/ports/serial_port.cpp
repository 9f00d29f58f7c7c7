#include "platform/ports/serial_port.h"

#include <poll.h>
#include <sys/file.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include <QSerialPort>

#include "platform/errors/runtime_error.h"
#include "platform/ports/device_lock.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr qint64 kReadLimit = 4096;
/// A command has a dozen bytes: when this much waits, the device has stopped taking any.
constexpr qint64 kWriteLimit = 1024;
constexpr int kFirstUsbAdapter = 9;

std::string ComFolder() {
  if (const char* folder = std::getenv("VAREK_COM_DIR"); folder && *folder) return folder;
  std::error_code error;
  return fs::is_directory("/dev/varek", error) ? "/dev/varek" : "";
}

/// The toolkit locks a device by its own name, so a link is followed to the device.
std::string FollowLink(const std::string& device) {
  std::error_code error;
  const fs::path target = fs::canonical(device, error);
  return error ? device : target.string();
}

[[noreturn]] void FailOpen(const std::string& device, const std::string& reason) {
  throw RuntimeError(errors::kPortOpenFailed, device + ": " + reason);
}

std::string InUse(const LockHolder& holder) {
  return "in use by " + holder.name + " (process " + std::to_string(holder.process) + ")";
}

/// The lock that a killed process has left can be another account's, and then it stays. The same
/// device under a longer name has another lock.
void TakeLocked(QSerialPort& port, const std::string& device) {
  std::string name = FollowLink(device);
  for (;; name.insert(name.rfind('/') + 1, "./")) {
    const auto holder = FindLockHolder(name);
    if (holder && holder->runs) FailOpen(device, InUse(*holder));
    port.setPortName(QString::fromStdString(name));
    if (port.open(QIODevice::ReadWrite)) return;
    if (!holder) FailOpen(device, port.errorString().toStdString());
  }
}

/// The lock on the device itself holds for every account and under every name.
void Take(QSerialPort& port, const std::string& device) {
  TakeLocked(port, device);
  const bool taken = flock(port.handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
  if (!taken) FailOpen(device, "in use by another program");
}

/// A device that has gone counts as readable forever; closed, it lets the event loop sleep again.
void CloseOnError(QSerialPort& port) {
  const auto close = [&port] {
    if (port.error() != QSerialPort::NoError) port.close();
  };
  QObject::connect(&port, &QSerialPort::errorOccurred, &port, close, Qt::QueuedConnection);
}

/// Pressing bytes on a device that is full would count as the loss of the device.
bool TakesBytes(const QSerialPort& port) {
  pollfd device{port.handle(), POLLOUT, 0};
  return poll(&device, 1, 0) > 0;
}

}  // namespace

std::string SerialDevice(int number) {
  const std::string folder = ComFolder();
  if (!folder.empty()) return folder + "/com" + std::to_string(number);
  if (number < kFirstUsbAdapter) return "/dev/ttyS" + std::to_string(number - 1);
  return "/dev/ttyUSB" + std::to_string(number - kFirstUsbAdapter);
}

struct SerialPort::Impl {
  int number = 0;
  std::unique_ptr<QSerialPort> port;

  /// A port whose device has gone is closed at the next look: within its own signal it can't be.
  void CloseWhenDeviceGone() {
    if (!port) return;
    if (port->error() != QSerialPort::NoError || !port->isOpen()) port.reset();
  }
};

SerialPort::SerialPort() : impl_(std::make_unique<Impl>()) {}
SerialPort::~SerialPort() = default;
SerialPort::SerialPort(SerialPort&&) noexcept = default;
SerialPort& SerialPort::operator=(SerialPort&&) noexcept = default;

void SerialPort::SetCommPort(int number) { impl_->number = number; }
int SerialPort::CommPort() const { return impl_->number; }

bool SerialPort::PortOpen() const {
  impl_->CloseWhenDeviceGone();
  return impl_->port != nullptr;
}

void SerialPort::Open() {
  const std::string device = SerialDevice(impl_->number);
  auto port = std::make_unique<QSerialPort>();
  port->setBaudRate(QSerialPort::Baud9600);
  port->setDataBits(QSerialPort::Data8);
  port->setParity(QSerialPort::NoParity);
  port->setStopBits(QSerialPort::OneStop);
  port->setFlowControl(QSerialPort::NoFlowControl);
  port->setReadBufferSize(kReadLimit);
  Take(*port, device);
  port->clearError();  // A pseudo-terminal refuses a setting or two that make no difference.
  CloseOnError(*port);
  impl_->port = std::move(port);
}

void SerialPort::Close() { impl_->port.reset(); }

void SerialPort::Output(const std::string& bytes) {
  if (!PortOpen()) throw RuntimeError(errors::kPortNotOpen, "port is not open");
  QSerialPort& port = *impl_->port;
  if (port.bytesToWrite() > kWriteLimit) {
    port.clear(QSerialPort::Output);
    throw RuntimeError(errors::kDeviceIo, "device takes no data");
  }
  port.write(bytes.data(), static_cast<qint64>(bytes.size()));
  if (TakesBytes(port)) port.flush();  // Else they leave from the event loop.
}

size_t SerialPort::InBufferCount() const {
  return PortOpen() ? static_cast<size_t>(impl_->port->bytesAvailable()) : 0;
}

std::string SerialPort::Input() {
  return PortOpen() ? impl_->port->readAll().toStdString() : std::string();
}

}  // namespace platform
