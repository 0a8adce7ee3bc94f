// The device's 8-bit code pages.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace handheld {

/// One 8-bit code page. Unassigned bytes stand for the control character of the same number, as on
/// the device.
class CodePage {
 public:
  /// `number` is 1251, 1252 or CP_ACP (the device's own); null for any other.
  static const CodePage* Find(UINT number);

  explicit CodePage(const char* iconvName);

  WCHAR Widen(char byte) const { return wide[static_cast<unsigned char>(byte)]; }
  /// Byte for a wide unit; -1 when the code page lacks it.
  int Narrow(WCHAR unit) const;

 private:
  std::array<WCHAR, 256> wide = {};
  std::unordered_map<WCHAR, unsigned char> bytes;
};

/// Number of the device's own code page.
UINT AnsiCodePage();

}  // namespace handheld
