// Texts and times that several trip sensors share.
#pragma once

#include <cstdint>
#include <string>

namespace ferolin {

class FixRecord;

constexpr std::int64_t FILE_TIME_PER_SECOND = 10'000'000;
constexpr std::int64_t FILE_TIME_PER_MILLISECOND = 10'000;

/// Only fixes that are valid and have a speed count for a trip.
bool FixCounts(const FixRecord& fix);

/// Seconds with as many decimals as fit four digits, and the unit: "9.500 s", "12.34 s", "123.4 s", "1234 s".
std::string TimeText(double seconds);

}  // namespace ferolin
