// Drives in words.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/NumberText.h"

namespace host {

// Times are UTC in milliseconds since 1970, shown in the user's time zone.

/// "21 Nov".
std::string DescribeDay(std::int64_t timeMs);

/// "17:42:03".
std::string DescribeClock(std::int64_t timeMs);

/// "2026-11-21 17:42".
std::string DescribeMoment(std::int64_t timeMs);

/// "2026-11-21-174203", for names of files.
std::string DescribeFileTime(std::int64_t timeMs);

/// "1:02:03".
std::string DescribeDuration(std::int64_t durationMs);

/// "2026-11-21T16:42:03.250Z"; empty for a missing time.
std::string DescribeUtc(const std::optional<std::int64_t>& timeMs);

/// Degrees with eight decimals, which is about a millimetre; empty for a missing value.
std::string DescribeCoordinate(const std::optional<double>& degrees);

inline constexpr double KMH_PER_METRE_PER_SECOND = 3.6;

}  // namespace host
