// The present read-outs for browsers.
#pragma once

#include <string>

#include "web/Snapshot.h"

namespace host {

/// Longest age of a fix whose speed and position are shown.
inline constexpr std::chrono::seconds LONGEST_FIX_AGE{3};

enum class ReceiverState { OK, NO_FIX, SILENT };

ReceiverState FindReceiverState(const Snapshot& snapshot, WebTime now);

/// Seconds since the last fix; nothing before the first one.
std::optional<double> GetFixAge(const Snapshot& snapshot, WebTime now);

/// One JSON object without a line feed: that of docs/json.md, the age of the fix and the state of
/// the receiver. Position and motion are null when the fix is too old.
std::string DescribeReadouts(const Snapshot& snapshot, WebTime now);

}  // namespace host
