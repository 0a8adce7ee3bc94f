// Moments as text.
#pragma once

#include <cstdint>
#include <string>

namespace host {

/// "2026-11-21T16:42:03.250Z" for milliseconds since 1970.
std::string UtcText(std::int64_t timeMs);

}  // namespace host
