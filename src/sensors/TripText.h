// Texts and times that several trip sensors share.
#pragma once

#include <string>

namespace ferolin {

class FixRecord;

/// Only fixes that are valid and have a speed count for a trip.
bool FixCounts(const FixRecord& fix);

/// Seconds with as many decimals as fit four digits, and the unit: "9.500 s", "12.34 s", "123.4 s",
/// "1234 s".
std::string TimeText(double seconds);

}  // namespace ferolin
