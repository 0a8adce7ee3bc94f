// Texts and times that several trip sensors share.
#pragma once

#include <string>

namespace ferolin {

class FixRecord;

/// Whether the fix counts for a trip: it is valid and has a speed.
bool FixCounts(const FixRecord& fix);

/// Seconds with as many decimals as fit four digits, and the unit: "9.500 s", "12.34 s", "123.4 s",
/// "1234 s".
std::string TimeText(double seconds);

}  // namespace ferolin
