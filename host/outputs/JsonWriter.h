// Updates as lines of JSON.
#pragma once

#include <string>

#include "engine/Figures.h"
#include "engine/Readout.h"

namespace host {

// Each text is one JSON object and a line feed, in UTF-8; bytes that are no UTF-8 become U+FFFD.
// docs/json.md describes the keys, which are the same in every language. Numbers are in SI units;
// null stands for a missing value. Without a fix there is neither position nor motion.

/// The read-outs as texts come last.
std::string JsonUpdate(const Update& update, const Figures& figures);

/// An update without the read-outs as texts and without the line feed.
std::string JsonState(const Update& update, const Figures& figures);

/// The totals of the trip, with "end":true in front; `registry` holds names and states of the
/// sensors that keep one.
std::string JsonEnd(const Update& last, const Figures& figures, const Readouts& registry);

}  // namespace host
