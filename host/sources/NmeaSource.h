// Where a receiver's bytes come from.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace host {

/// One thread reads; Stop may be called on any thread.
class NmeaSource {
 public:
  virtual ~NmeaSource() = default;

  /// Waits for the next bytes. Nothing when the source has ended or was stopped.
  virtual std::optional<std::string> Read() = 0;

  /// Ends the present Read and all later ones.
  virtual void Stop() = 0;

  /// Number of bytes of the whole source; nothing when it is unknown.
  virtual std::optional<std::uint64_t> GetSize() const = 0;

  /// Share of the source that ends at this offset, 0 to 1; nothing when its size is unknown.
  std::optional<double> GetProgress(std::uint64_t offset) const {
    const std::optional<std::uint64_t> size = GetSize();
    if (!size || *size == 0) {
      return size ? std::optional(1.0) : std::nullopt;
    }
    return static_cast<double>(offset) / static_cast<double>(*size);
  }

  /// Why nothing can be read at present, for the user; empty when something can. For any thread.
  virtual std::string GetTrouble() const { return {}; }

  /// Whether trouble means that a receiver is being looked for.
  virtual bool Searches() const { return false; }

  /// The receiver that was found, for the user; empty when none was looked for. For any thread.
  virtual std::string GetName() const { return {}; }

  /// True for a receiver, which does not wait.
  virtual bool IsLive() const = 0;
};

}  // namespace host
