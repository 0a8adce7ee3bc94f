#pragma once

#include <algorithm>
#include <limits>

namespace ferolin {

/// The smallest box around some positions, in degrees x 100 + minutes as the track has them. While
/// it is empty its least values lie above its greatest.
struct PathBox {
  static constexpr float FARTHEST = std::numeric_limits<float>::max();

  float minLatitude = FARTHEST;
  float maxLatitude = -FARTHEST;
  float minLongitude = FARTHEST;
  float maxLongitude = -FARTHEST;

  /// A position that is no number changes nothing.
  void Widen(float latitude, float longitude) {
    minLatitude = std::min(minLatitude, latitude);
    maxLatitude = std::max(maxLatitude, latitude);
    minLongitude = std::min(minLongitude, longitude);
    maxLongitude = std::max(maxLongitude, longitude);
  }

  bool HasArea() const { return minLatitude < maxLatitude && minLongitude < maxLongitude; }
};

}  // namespace ferolin
