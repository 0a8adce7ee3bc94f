// Wide text of the device's API.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace ferolin {

using WideString = std::basic_string<WCHAR>;
using WideStringView = std::basic_string_view<WCHAR>;

/// Copies `text` into a buffer of `N` characters, cut to fit, always terminated.
template <std::size_t N>
void CopyWide(WCHAR (&buffer)[N], WideStringView text) {
  const std::size_t length = text.copy(buffer, N - 1);
  buffer[length] = 0;
}

}  // namespace ferolin
