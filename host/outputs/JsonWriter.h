// Updates as lines of JSON.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/Readout.h"

namespace host {

/// `text` (UTF-8) as a JSON string with its quotes. Bytes that are no UTF-8 become U+FFFD.
std::string JsonString(std::string_view text);

/// {"update":1,"sensors":{"GPS status":"OK",...}} and a line feed.
std::string JsonUpdate(const Update& update);

/// {"end":true,"updates":2,"registry":{"Distance":"1.5",...}} and a line feed. `registry` holds
/// names and states of the sensors that keep one.
std::string JsonEnd(std::uint64_t updates, const Readouts& registry);

}  // namespace host
