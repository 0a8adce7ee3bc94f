#include "base/UtcText.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace host {

std::string UtcText(std::int64_t timeMs) {
  const std::chrono::sys_time<std::chrono::milliseconds> moment{std::chrono::milliseconds(timeMs)};
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  std::array<char, 32> buffer;
  const int length = std::snprintf(
      buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ",
      static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
      static_cast<unsigned>(date.day()), static_cast<int>(time.hours().count()),
      static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()),
      static_cast<int>(time.subseconds().count()));
  return {buffer.data(), static_cast<std::size_t>(length)};
}

}  // namespace host
