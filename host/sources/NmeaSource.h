// Where the bytes of a receiver come from when the host passes them on to the engine.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace host {

/// Read on the feeder's thread; Stop may be called from any other.
class NmeaSource {
 public:
  virtual ~NmeaSource() = default;

  /// The next bytes; waits for them. Nothing when the source has ended or was stopped.
  virtual std::optional<std::string> Read() = 0;

  /// Ends a Read under way and all later ones.
  virtual void Stop() = 0;

  /// Bytes in all; nothing when that is not known beforehand.
  virtual std::optional<std::uint64_t> GetSize() const = 0;

  /// True for a receiver: what it sends cannot wait.
  virtual bool IsLive() const = 0;
};

}  // namespace host
