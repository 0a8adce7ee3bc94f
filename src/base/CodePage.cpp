#include "base/CodePage.h"

#include <algorithm>

namespace ferolin {

std::string Narrow(WideStringView wide) {
  if (wide.empty()) {
    return {};
  }
  const int wideLength = static_cast<int>(wide.size());
  const int length =
      WideCharToMultiByte(CP_ACP, 0, wide.data(), wideLength, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(std::max(length, 0)), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), wideLength, text.data(), length, nullptr, nullptr);
  return text;
}

void NarrowInto(char* buffer, std::size_t size, WideStringView wide) {
  const std::string text = Narrow(wide);
  buffer[text.copy(buffer, size - 1)] = '\0';
}

WideString Widen(std::string_view text) {
  if (text.empty()) {
    return {};
  }
  const int length = static_cast<int>(text.size());
  const int wideLength = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
  WideString wide(static_cast<std::size_t>(std::max(wideLength, 0)), WCHAR{});
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), wideLength);
  return wide;
}

}  // namespace ferolin
