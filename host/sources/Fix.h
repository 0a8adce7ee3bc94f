// What a receiver said about one moment.
#pragma once

#include <cstdint>
#include <optional>

namespace host {

/// Values as the receiver gave them; nothing for one that it did not give. Without a fix, position
/// and motion may be those of the last one, or guesses.
struct Fix {
  /// UTC in milliseconds since 1970.
  std::optional<std::int64_t> timeMs;
  bool hasFix = false;
  /// Degrees north, -90 to 90.
  std::optional<double> latitude;
  /// Degrees east, -180 to 180.
  std::optional<double> longitude;
  /// Metres above the sea.
  std::optional<double> altitude;
  std::optional<double> speedKmh;
  /// Degrees from north, clockwise.
  std::optional<double> course;
  std::optional<double> hdop;
  /// Number of satellites used.
  std::optional<int> satellites;

  bool operator==(const Fix&) const = default;
};

}  // namespace host
