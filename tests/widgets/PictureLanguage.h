// The language of the program's pictures.
#pragma once

#include <string_view>

namespace ferolin {

inline constexpr bool IS_RUSSIAN = std::string_view(LANGUAGE) == "RUS";

}  // namespace ferolin
