// The device's time zone.
#pragma once

#include <cstdint>
#include <mutex>
#include <string>

namespace handheld {

/// The C library's zone, which the whole process shares: setting it sets TZ. Until then it is the
/// one that the environment, else the machine, is set to.
class TimeZone {
 public:
  static TimeZone& Instance();

  /// A POSIX rule such as "MSK-3" or a name of the tz database; UTC when it is neither.
  void Set(const std::string& name);

  /// Seconds east of UTC at a moment in file time.
  std::int64_t GetOffsetAt(std::int64_t fileTime) const;

 private:
  /// Held while the zone is set or asked: the C library rereads TZ when it is first asked.
  mutable std::mutex mutex;
};

}  // namespace handheld
