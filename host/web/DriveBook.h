// Kept drives for browsers.
#pragma once

#include <cstdint>
#include <string>

#include "web/Reply.h"

namespace host {

/// Reads the drives of a folder with a connection of its own for each call, on any thread.
class DriveBook {
 public:
  explicit DriveBook(std::string home) : home(std::move(home)) {}

  /// All of them as a JSON array, the oldest first. Throws HostError.
  Reply List() const;

  /// One drive as GPX; a 404 when there is none with that number. Throws HostError.
  Reply Export(std::int64_t number) const;

  /// 0 when the drives cannot be read.
  std::size_t Count() const;

 private:
  bool HasDrives() const;

  const std::string home;
};

}  // namespace host
