// A receiver at a serial port, read through the device's own API.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <mutex>
#include <string>

#include "sources/NmeaSource.h"

namespace host {

/// Waits for a receiver that was unplugged: the port's driver opens it again.
class PortSource : public NmeaSource {
 public:
  /// The device's name for the port.
  static constexpr LPCWSTR PORT_NAME = TEXT("COM2:");

  /// Throws HostError with the reason when the device is no serial port or cannot be opened.
  static void Check(const std::string& device);

  /// `baudRate` 0 leaves the port's own rate. Throws HostError when the port cannot be opened.
  PortSource(const std::string& device, int baudRate);
  ~PortSource() override;

  std::optional<std::string> Read() override;
  void Stop() override;
  std::optional<std::uint64_t> GetSize() const override { return std::nullopt; }
  bool IsLive() const override { return true; }

 private:
  void Close();

  std::mutex mutex;
  std::condition_variable stopSignal;
  HANDLE port = INVALID_HANDLE_VALUE;
  bool stopped = false;
};

}  // namespace host
