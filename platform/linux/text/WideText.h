// Text between the device's wide form and UTF-8, and comparison of names without regard to case.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace handheld {

/// The text in small letters, in any alphabet and independent of the process's locale.
std::u16string FoldCase(std::u16string_view text);

/// Length without the terminator; 0 for null.
std::size_t WideLength(LPCWSTR text);

/// Copy of the text; empty for null.
std::u16string WideText(LPCWSTR text);

/// True when two UTF-8 names are equal apart from letter case.
bool SameName(const std::string& left, const std::string& right);

}  // namespace handheld
