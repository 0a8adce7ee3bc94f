// The device's time zone.
#pragma once

#include <cstdint>
#include <mutex>
#include <string>

namespace handheld {

/// The time zone of the C library, which the whole process shares: Set changes TZ. At start the
/// zone of the environment, else of the machine.
class TimeZone {
 public:
  static TimeZone& Instance();

  /// A POSIX rule such as "MSK-3" or a name of the tz database; UTC when it is neither.
  void Set(const std::string& name);

  /// Seconds east of UTC at a moment in file time.
  std::int64_t GetOffsetAt(std::int64_t fileTime) const;

 private:
  /// Held by Set and GetOffsetAt: the first conversion reads TZ.
  mutable std::mutex mutex;
};

}  // namespace handheld
