#pragma once

#include <cstdint>
#include <string>

namespace ferolin {

/// Texts of the path's panel, 8-bit in the ANSI code page.
struct PathReadouts {
  std::string speed;
  std::string currentTime;
  std::string elapsed;
  std::string averageSpeed;
  std::string distance;
};

/// "59 sec", "1:01", "1:01:01", "1D.1:1:1".
std::string ElapsedText(std::int32_t seconds);

/// "500 m", "1.23 km", "12.3 km".
std::string PathDistanceText(float km);

/// "36.0 km/h".
std::string PathSpeedText(double kmh);

}  // namespace ferolin
