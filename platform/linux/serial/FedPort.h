// A serial port in memory, which the host feeds.
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>

#include "core/Handles.h"
#include "handheld.h"

namespace handheld {

/// Reads call the host's reader on their own thread. Once the reader has no more bytes, a read waits
/// until the handle is closed.
class FedPort : public Stream {
 public:
  /// `claim` is the name under which SerialPorts holds the claim of this opening.
  FedPort(PortReader reader, std::string claim);

  void HandleClosed() override;
  DWORD Read(void* buffer, DWORD size, DWORD& count) override;
  /// Drops the bytes.
  DWORD Write(const void* data, DWORD size, DWORD& count) override;
  DWORD Flush() override { return ERROR_SUCCESS; }

 private:
  const PortReader reader;
  const std::string claim;
  std::mutex mutex;
  std::condition_variable closing;
  bool closed = false;
};

}  // namespace handheld
