// Updates as lines of JSON.
#pragma once

#include <cstdint>
#include <string>

#include "engine/Readout.h"

namespace host {

// Each text is one JSON object and a line feed, in UTF-8; bytes that are no UTF-8 become U+FFFD.

/// {"update":1,"sensors":{"GPS status":"OK",...}}, with "notice":"no data for 12 s" before the
/// sensors if there is one.
std::string JsonUpdate(const Update& update);

/// {"end":true,"updates":2,"registry":{"Distance":"1.5",...}}; `registry` holds names and states
/// of the sensors that keep one.
std::string JsonEnd(std::uint64_t updates, const Readouts& registry);

}  // namespace host
