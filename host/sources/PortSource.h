// A receiver at a serial port, read through the device's own API.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <mutex>
#include <string>

#include "sources/NmeaSource.h"

namespace host {

/// A receiver that is unplugged is waited for: the port's driver takes it up again.
class PortSource : public NmeaSource {
 public:
  /// Name of the port that is mapped to the device.
  static constexpr LPCWSTR PORT_NAME = TEXT("COM2:");

  /// Throws HostError, saying why, when the device is no serial port that can be opened.
  static void Check(const std::string& device);

  /// `baudRate` 0 leaves the port's own. Throws HostError when the port does not open.
  PortSource(const std::string& device, int baudRate);
  ~PortSource() override;

  std::optional<std::string> Read() override;
  void Stop() override;
  std::optional<std::uint64_t> GetSize() const override { return std::nullopt; }
  bool IsLive() const override { return true; }

 private:
  /// Ends a read under way and all later ones.
  void Close();

  std::mutex mutex;
  std::condition_variable stopSignal;
  HANDLE port = INVALID_HANDLE_VALUE;
  bool stopped = false;
};

}  // namespace host
