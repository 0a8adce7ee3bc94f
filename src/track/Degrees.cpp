#include "track/Degrees.h"

#include <cmath>

#include "base/Saturate.h"

namespace ferolin {

float DegreesFromNmea(float coordinate) {
  constexpr float DEGREES_PER_MINUTE = 0.016666668F;
  const float value = std::fabs(coordinate);
  const int whole = Saturated<int>(static_cast<double>(value));
  const int degrees = whole / 100;
  const int minutes = whole - 100 * degrees;
  const float fraction = value - static_cast<float>(whole);
  const float result =
      (static_cast<float>(minutes) * DEGREES_PER_MINUTE + fraction * DEGREES_PER_MINUTE) +
      static_cast<float>(degrees);
  return coordinate < 0 ? -result : result;
}

}  // namespace ferolin
