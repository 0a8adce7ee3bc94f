// Font files that were added to the device's own fonts.
#pragma once

#include <string>
#include <vector>

namespace handheld {

/// Linux paths of the files now registered, each once, in the order of their first registration.
std::vector<std::string> RegisteredFonts();

}  // namespace handheld
