// Font files added with AddFontResourceW.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace handheld {

/// Linux paths of the registered files, each once, in the order of their first registration.
std::vector<std::string> RegisteredFonts();

/// Changes whenever the list of registered files does.
std::uint64_t RegisteredFontsVersion();

}  // namespace handheld
