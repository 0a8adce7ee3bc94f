// UTC, the device's local time, and file times.
#pragma once

#include <windows.h>

#include <cstdint>

namespace ferolin {

/// File times count 100-nanosecond units since 1601.
constexpr std::int64_t FILE_TIME_PER_SECOND = 10'000'000;
constexpr std::int64_t FILE_TIME_PER_MILLISECOND = 10'000;

/// Local time of a UTC time in the device's time zone. A time that the platform cannot convert is
/// returned unchanged.
SYSTEMTIME LocalFromUtc(const SYSTEMTIME& utc);

/// UTC of a local time in the device's time zone. A time that the platform cannot convert is
/// returned unchanged.
SYSTEMTIME UtcFromLocal(const SYSTEMTIME& local);

/// The device's clock, local time.
SYSTEMTIME DeviceTime();

/// File time of a date and time; 0 for one that does not exist (day 0, month 13, ...).
std::int64_t FileTimeOf(const SYSTEMTIME& time);

}  // namespace ferolin
