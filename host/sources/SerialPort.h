// A serial port whose rate can be changed while it is open.
#pragma once

#include <optional>
#include <string>

#include "base/FileDescriptor.h"
#include "common/WakeEvent.h"

namespace host {

/// For one thread.
class SerialPort {
 public:
  /// Opens the port for this program alone. When that fails, it is not open and errno is set.
  explicit SerialPort(const std::string& path);

  SerialPort(const SerialPort&) = delete;
  SerialPort& operator=(const SerialPort&) = delete;
  ~SerialPort();

  bool IsOpen() const { return port.IsOpen(); }

  /// Drops what has come at another rate.
  void SetBaudRate(int baud) const;

  /// Waits for bytes, at most this long (-1: without a limit) or until the event is raised; empty
  /// when none come. Nothing when the port has failed or was unplugged.
  std::optional<std::string> Read(int timeoutMs, const siblings::WakeEvent& stop) const;

 private:
  FileDescriptor port;
};

}  // namespace host
