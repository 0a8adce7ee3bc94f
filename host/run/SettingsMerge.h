// Two settings files that become one.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// `settings` with the keys that only `older` has added at its end. Keys that are commented out
/// count, as they do for the engine.
std::string AddMissingSettings(std::string settings, std::string_view older);

}  // namespace host
