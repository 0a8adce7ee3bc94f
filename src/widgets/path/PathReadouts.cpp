#include "widgets/path/PathReadouts.h"

#include "base/Format.h"

namespace ferolin {

namespace {

constexpr std::int32_t SECONDS_PER_MINUTE = 60;
constexpr std::int32_t SECONDS_PER_HOUR = 60 * SECONDS_PER_MINUTE;
constexpr std::int32_t SECONDS_PER_DAY = 24 * SECONDS_PER_HOUR;

constexpr float METRES_PER_KM = 1000;

}  // namespace

std::string ElapsedText(std::int32_t seconds) {
  const std::int32_t days = seconds / SECONDS_PER_DAY;
  const std::int32_t hours = seconds % SECONDS_PER_DAY / SECONDS_PER_HOUR;
  const std::int32_t minutes = seconds % SECONDS_PER_HOUR / SECONDS_PER_MINUTE;
  const std::int32_t rest = seconds % SECONDS_PER_MINUTE;
  if (days != 0) {
    return Format("%iD.%i:%i:%i", days, hours, minutes, rest);
  }
  if (hours != 0) {
    return Format("%i:%02i:%02i", hours, minutes, rest);
  }
  return minutes != 0 ? Format("%i:%02i", minutes, rest) : Format("%i sec", rest);
}

std::string PathDistanceText(float km) {
  if (km < 1) {
    return Format("%.0f m", km * METRES_PER_KM);
  }
  return Format(km < 10 ? "%.2f km" : "%.1f km", km);
}

std::string PathSpeedText(double kmh) {
  return Format("%0.1f km/h", kmh);
}

}  // namespace ferolin
