#pragma once

#include <algorithm>
#include <limits>

namespace ferolin {

/// The smallest box that holds some positions, in degrees x 100 + minutes as the track has them.
/// Without any the least values lie above the greatest.
struct PathBox {
  static constexpr float NONE = std::numeric_limits<float>::max();

  float minLatitude = NONE;
  float maxLatitude = -NONE;
  float minLongitude = NONE;
  float maxLongitude = -NONE;

  void Widen(float latitude, float longitude) {
    minLatitude = std::min(minLatitude, latitude);
    maxLatitude = std::max(maxLatitude, latitude);
    minLongitude = std::min(minLongitude, longitude);
    maxLongitude = std::max(maxLongitude, longitude);
  }

  bool Contains(float latitude, float longitude) const {
    return latitude >= minLatitude && latitude <= maxLatitude && longitude >= minLongitude &&
           longitude <= maxLongitude;
  }

  bool Contains(const PathBox& other) const {
    return minLatitude <= other.minLatitude && maxLatitude >= other.maxLatitude &&
           minLongitude <= other.minLongitude && maxLongitude >= other.maxLongitude;
  }

  bool Overlaps(const PathBox& other) const {
    return minLatitude <= other.maxLatitude && maxLatitude >= other.minLatitude &&
           minLongitude <= other.maxLongitude && maxLongitude >= other.minLongitude;
  }

  /// An empty one overlaps none.
  bool IsEmpty() const { return minLatitude > maxLatitude; }
  /// Whether it has both a width and a height.
  bool HasArea() const { return minLatitude < maxLatitude && minLongitude < maxLongitude; }
};

}  // namespace ferolin
