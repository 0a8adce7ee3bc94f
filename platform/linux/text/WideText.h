// Text between the device's wide form and UTF-8, and comparison of names without regard to case.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace handheld {

/// Small letters for all that have them, whatever the process's locale.
std::u16string FoldCase(std::u16string_view text);

/// Length of the text without its end; 0 for null.
std::size_t WideLength(LPCWSTR text);

/// Copy of a text that may be null (then empty).
std::u16string WideText(LPCWSTR text);

/// True when both UTF-8 names differ in letter case at most.
bool SameName(const std::string& left, const std::string& right);

}  // namespace handheld
