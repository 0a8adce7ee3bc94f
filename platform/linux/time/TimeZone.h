// Time zones of the device.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace handheld {

/// Offset rules as in POSIX's TZ variable, such as "MSK-3" or "CET-1CEST,M3.5.0,M10.5.0/3".
class PosixZone {
 public:
  /// UTC.
  PosixZone() = default;

  /// Nothing when the text is not such a rule.
  static std::optional<PosixZone> Parse(const std::string& text);

  /// Seconds east of UTC at a moment given in seconds since 1970 (UTC).
  std::int64_t GetOffsetAt(std::int64_t moment) const;

 private:
  /// A day of the year and the second of that day (local time before the change) at which the
  /// offset changes.
  struct Change {
    enum class Kind { MONTH_WEEK_DAY, DAY_WITHOUT_LEAP, DAY_OF_YEAR };
    Kind kind = Kind::MONTH_WEEK_DAY;
    int month = 0;
    int week = 0;
    /// Day of the week (0 is Sunday) or of the year.
    int day = 0;
    int second = 2 * 3600;

    /// Seconds since 1970 of that local time, as if it were UTC.
    std::int64_t In(int year) const;
  };
  friend class PosixZoneParser;

  int standard = 0;
  int summer = 0;
  bool hasSummer = false;
  Change toSummer;
  Change toStandard;
};

/// A zone of the tz database: its recorded changes, and a rule for what comes after the last of
/// them.
class TimeZone {
 public:
  /// UTC.
  TimeZone() = default;

  /// A name ("Europe/Moscow"), the path of a tz database file, or a POSIX rule. UTC when it is none
  /// of them.
  static TimeZone FromName(const std::string& name);
  /// From the content of a tz database file; nothing when it is damaged.
  static std::optional<TimeZone> FromDatabase(const std::string& content);
  /// The zone that the environment, else the machine, is set to.
  static TimeZone OfProcess();

  /// Seconds east of UTC at a moment given in seconds since 1970 (UTC).
  std::int64_t GetOffsetAt(std::int64_t moment) const;

 private:
  struct Change {
    std::int64_t moment;
    std::int64_t offset;
  };

  std::vector<Change> changes;
  std::int64_t offsetBeforeChanges = 0;
  /// Holds from the last change on, when there is one.
  PosixZone rule;
  bool hasRule = false;
};

/// The zone the device is set to. The C library's own conversions go through one global zone that
/// they reread at will, which no lock of ours could protect from the rest of the process; hence the
/// classes above.
class TimeZones {
 public:
  static TimeZones& Instance();

  void Set(const std::string& name);

  /// Seconds east of UTC at a moment in file time.
  std::int64_t GetOffsetAt(std::int64_t fileTime) const;

 private:
  TimeZones();

  mutable std::mutex mutex;
  std::shared_ptr<const TimeZone> zone;
};

}  // namespace handheld
