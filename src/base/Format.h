// printf-style formatting of short texts.
//
// The devices' variadic run-time calls pass doubles in different ways, and on desktops they obey
// the process's locale. So every formatted text goes through here: arguments are collected with
// their types, and the C run-time prints them one by one.
#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace ferolin {

/// One argument of a format. Texts are borrowed for the duration of the call.
class FormatArgument {
 public:
  enum class Kind { INTEGER, REAL, TEXT_8BIT };

  template <std::integral Integer>
  requires(sizeof(Integer) <= sizeof(int)) FormatArgument(Integer value)
      : kind(Kind::INTEGER), integer(static_cast<int>(value)) {}
  FormatArgument(double value) : kind(Kind::REAL), real(value) {}
  FormatArgument(float value) : FormatArgument(static_cast<double>(value)) {}
  FormatArgument(const char* value) : kind(Kind::TEXT_8BIT), text(value) {}
  FormatArgument(const std::string& value) : FormatArgument(value.c_str()) {}

  Kind kind;
  union {
    int integer;
    double real;
    const char* text;
  };
};

/// Prints `format` into `out`, cut to `size` - 1 characters and terminated (nothing when `size` is
/// 0). Known conversions: %i, the floating-point ones, %s (without width or precision) and %%.
/// Returns the number of characters now in `out`.
std::size_t FormatArguments(char* out, std::size_t size, std::string_view format,
                            std::span<const FormatArgument> arguments);

/// As above, arguments given one by one: ints, floats, doubles and 8-bit texts.
template <class... Values>
std::size_t FormatInto(char* out, std::size_t size, std::string_view format,
                       const Values&... values) {
  const std::array<FormatArgument, sizeof...(Values)> arguments{FormatArgument(values)...};
  return FormatArguments(out, size, format, arguments);
}

/// The formatted text, cut to 255 characters.
template <class... Values>
std::string Format(std::string_view format, const Values&... values) {
  char text[256];
  return std::string(text, FormatInto(text, sizeof text, format, values...));
}

}  // namespace ferolin
