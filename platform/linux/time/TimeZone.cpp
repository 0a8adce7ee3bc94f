#include "time/TimeZone.h"

#include <cstdlib>
#include <ctime>

#include "handheld.h"
#include "time/Calendar.h"

namespace handheld {

TimeZone& TimeZone::Instance() {
  static TimeZone& zone = *new TimeZone;
  return zone;
}

void TimeZone::Set(const std::string& name) {
  const std::lock_guard lock(mutex);
  setenv("TZ", name.c_str(), 1);
  tzset();
}

std::int64_t TimeZone::GetOffsetAt(std::int64_t fileTime) const {
  const auto moment =
      static_cast<time_t>((fileTime - Calendar::UNIX_EPOCH) / Calendar::UNITS_PER_SECOND);
  tm local = {};
  const std::lock_guard lock(mutex);
  return localtime_r(&moment, &local) == nullptr ? 0 : local.tm_gmtoff;
}

void SetTimeZone(const char* zone) {
  TimeZone::Instance().Set(zone == nullptr ? "" : zone);
}

}  // namespace handheld
