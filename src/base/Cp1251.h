// Russian literals in the device's code page.
#pragma once

#include <array>
#include <cstddef>

namespace ferolin {

/// 8-bit text in code page 1251 of up to 63 characters, converted from a u"..." literal at compile
/// time. Only ASCII and the letters from А to я are known; any other character does not compile.
class Cp1251Text {
 public:
  template <std::size_t N>
  consteval Cp1251Text(const char16_t (&literal)[N]) {
    static_assert(N <= 64);
    for (std::size_t index = 0; index < N; ++index) {
      bytes[index] = Byte(literal[index]);
    }
  }

  constexpr const char* Get() const { return bytes.data(); }

 private:
  /// Stops the compilation when reached, since it is not constexpr.
  static void NotInCodePage() {}

  static consteval char Byte(char16_t character) {
    if (character < 0x80) {
      return static_cast<char>(character);
    }
    if (character >= u'А' && character <= u'я') {
      return static_cast<char>(character - u'А' + 0xC0);
    }
    NotInCodePage();
    return '\0';
  }

  std::array<char, 64> bytes = {};
};

}  // namespace ferolin
