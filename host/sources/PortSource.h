// A receiver at a serial port, read through the device's own API.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <mutex>
#include <string>

#include "sources/NmeaSource.h"

namespace host {

/// Waits for a receiver that is not there yet or was unplugged: tries to open the port about once a
/// second.
class PortSource : public NmeaSource {
 public:
  /// The device's name for the port.
  static constexpr LPCWSTR PORT_NAME = TEXT("COM2:");

  /// Why the device cannot be opened, for the user; empty when it can.
  static std::string FindTrouble(const std::string& device);

  /// Throws HostError when something that is no serial port has the device's name.
  static void Check(const std::string& device);

  /// `baudRate` 0 leaves the port's own rate.
  PortSource(const std::string& device, int baudRate);
  ~PortSource() override;

  std::optional<std::string> Read() override;
  void Stop() override;
  std::optional<std::uint64_t> GetSize() const override { return std::nullopt; }
  std::string GetTrouble() const override;
  bool IsLive() const override { return true; }

 private:
  HANDLE Open();
  /// Nothing when the port has failed.
  static std::optional<std::string> ReadFrom(HANDLE port);
  void Close(HANDLE toClose);

  const std::string device;
  const int baudRate;
  mutable std::mutex mutex;
  std::condition_variable stopSignal;
  HANDLE port = INVALID_HANDLE_VALUE;
  std::string trouble;
  bool stopped = false;
};

/// "cannot open /dev/ttyUSB0: Permission denied ...". `error` is an errno value.
std::string DescribeOpenFailure(const std::string& device, int error);

}  // namespace host
