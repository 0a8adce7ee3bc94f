// Conversion between the device's wide text and 8-bit text in its ANSI code page.
#pragma once

#include <string>
#include <string_view>

#include "base/WideString.h"

namespace ferolin {

/// 8-bit text of `wide`; characters that the code page lacks become '?'.
std::string Narrow(WideStringView wide);

/// As above into a buffer of `size` bytes (> 0), cut to fit and terminated.
void NarrowInto(char* buffer, std::size_t size, WideStringView wide);

/// Wide text of 8-bit text in the ANSI code page.
WideString Widen(std::string_view text);

}  // namespace ferolin
