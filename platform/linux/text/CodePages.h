// The device's 8-bit code pages.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <string>

namespace handheld {

/// One 8-bit code page. Unassigned bytes stand for the control character of the same number, as on
/// the device.
class CodePage {
 public:
  /// `number` is 1251, 1252 or CP_ACP (the device's own); null for any other.
  static const CodePage* Find(UINT number);

  /// Wide units of the bytes from 0x80; those below are ASCII.
  using UpperHalf = std::array<WCHAR, 128>;
  static constexpr int FIRST_UPPER = 0x80;

  explicit constexpr CodePage(const UpperHalf& upper) : upper(upper) {}

  WCHAR Widen(char byte) const {
    const auto number = static_cast<unsigned char>(byte);
    return number < FIRST_UPPER ? static_cast<WCHAR>(number) : upper[number - FIRST_UPPER];
  }
  /// Byte for a wide unit; -1 when the code page lacks it.
  int Narrow(WCHAR unit) const;

 private:
  UpperHalf upper;
};

/// Number of the device's own code page.
UINT AnsiCodePage();

}  // namespace handheld
