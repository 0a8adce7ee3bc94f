// Font files that were added to the device's own fonts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace handheld {

/// Linux paths of the files now registered, each once, in the order of their first registration.
std::vector<std::string> RegisteredFonts();

/// Another number whenever the registered files are others than before.
std::uint64_t RegisteredFontsVersion();

}  // namespace handheld
