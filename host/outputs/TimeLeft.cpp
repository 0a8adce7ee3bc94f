#include "outputs/TimeLeft.h"

#include <cmath>

namespace host {

namespace {

constexpr std::chrono::seconds FIRST_TOLD(1);
constexpr long SECONDS_PER_MINUTE = 60;

}  // namespace

std::string TimeLeft::Describe(std::optional<double> progress,
                               std::chrono::steady_clock::time_point now) const {
  const std::chrono::duration<double> passed = now - start;
  if (passed < FIRST_TOLD || progress.value_or(0) <= 0) {
    return {};
  }
  const long rounded = std::lround(passed.count() * (1 - *progress) / *progress);
  const long seconds = rounded % SECONDS_PER_MINUTE;
  return std::to_string(rounded / SECONDS_PER_MINUTE) + (seconds < 10 ? ":0" : ":") +
         std::to_string(seconds) + " left";
}

}  // namespace host
