// Conversions between the two times of a fix.
#pragma once

#include <windows.h>

#include <cstdint>

namespace ferolin {

/// Local time of a UTC time, by the device's time zone. A time that the platform cannot convert comes back as it is.
SYSTEMTIME LocalFromUtc(const SYSTEMTIME& utc);

/// UTC of a local time, by the device's time zone. A time that the platform cannot convert comes back as it is.
SYSTEMTIME UtcFromLocal(const SYSTEMTIME& local);

/// The device's clock, local time.
SYSTEMTIME DeviceTime();

/// Count of 100-nanosecond units since 1601; 0 for a time that is none (day 0, month 13, ...).
std::int64_t FileTimeOf(const SYSTEMTIME& time);

}  // namespace ferolin
