// Flags in the settings file.
#pragma once

#include <string_view>

namespace ferolin {

inline std::string_view FlagText(bool flag) {
  return flag ? "true" : "false";
}

/// Any value that holds "true" is on; a missing one is off.
inline bool FlagFrom(std::string_view value) {
  return value.find("true") != std::string_view::npos;
}

}  // namespace ferolin
