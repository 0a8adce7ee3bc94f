// An open serial port.
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "core/Descriptor.h"
#include "core/Handles.h"
#include "serial/Burst.h"

namespace handheld {

/// Reads wait for data and return a complete burst. A device that disappears (an unplugged adapter,
/// a pseudo-terminal whose other side closed) is looked for about once a second while the handle is
/// open and a read waits.
class PortStream : public Stream {
 public:
  /// Opens the device at `devicePath` in raw mode and keeps its baud rate. Null with `error` set on
  /// failure. `claimName` is the name under which SerialPorts holds the claim of this opening.
  static std::shared_ptr<PortStream> Open(const std::string& devicePath, std::string claimName,
                                          DWORD& error);

  PortStream(std::string devicePath, std::string claimName, Descriptor opened);

  void HandleClosed() override;
  DWORD Read(void* buffer, DWORD size, DWORD& count) override;
  DWORD Write(const void* data, DWORD size, DWORD& count) override;
  DWORD Flush() override;

  /// No value when the device is gone or has no baud rate.
  std::optional<DWORD> GetBaud() const;
  bool SetBaud(DWORD baud);

 private:
  using Device = std::shared_ptr<const Descriptor>;
  enum class Event { DATA, SILENCE, CLOSED, LOST };

  Device GetDevice() const;
  Event Await(const Device& from, short events, std::optional<Burst::Duration> patience) const;
  Event Receive(const Device& from, Burst& burst);
  Event Gather(const Device& from, Burst& burst);
  void TakeLeftover(Burst& burst);
  /// Number of bytes to hand over; the rest is kept for the next read.
  DWORD KeepLeftover(const Burst& burst);
  void Drop(const Device& lost);
  /// Waits until a lost device is due to be looked for and tries to open it. LOST when it is still
  /// missing.
  Event AwaitReturn();

  const std::string path;
  const std::string claim;
  /// Readable once the handle is closed; wakes all waiting calls.
  const Descriptor closeEvent;

  mutable std::mutex mutex;
  bool closed = false;
  Device device;
  std::string leftover;
  /// Last rate set; applied again to a device that returns.
  std::optional<DWORD> wantedBaud;
  std::chrono::steady_clock::time_point lastLook;
};

}  // namespace handheld
