#pragma once

#include <gpsapi.h>

#include <memory>
#include <mutex>
#include <thread>

namespace dastrel {

/// Follows gpsd on a thread of its own and keeps the newest position. While gpsd is missing the
/// thread tries to connect about once a second. Every function may be called from any thread and
/// throws nothing.
class GpsdReader {
 public:
  GpsdReader() = default;
  ~GpsdReader();
  GpsdReader(const GpsdReader&) = delete;
  GpsdReader& operator=(const GpsdReader&) = delete;

  /// Starts the thread and returns at once. Does nothing while it runs, or without memory or
  /// threads left. `address` is a text for GpsdAddress::FromText, null for the default.
  void Start(const char* address) noexcept;

  /// Ends the thread and waits for it. Afterwards the position is unknown.
  void Stop() noexcept;

  /// The newest position as of now; without one (or when stopped) its FixType is GPS_FIX_UNKNOWN.
  GPS_POSITION GetPosition() const noexcept;

 private:
  class Session;

  mutable std::mutex mutex;
  std::shared_ptr<Session> session;
  std::thread thread;
};

}  // namespace dastrel
