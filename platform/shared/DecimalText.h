#pragma once

#include <charconv>
#include <cstring>
#include <system_error>

namespace handheld {

inline bool IsBlank(char letter) {
  return letter == ' ' || (letter >= '\t' && letter <= '\r');
}

inline bool IsDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

/// The decimal number at the start of a text, 0 without one. Reads decimal points in every locale.
/// `convert` handles numbers out of the range of double.
template <class Convert>
double ParseDecimal(const char* text, Convert convert) {
  while (IsBlank(*text)) {
    ++text;
  }
  const bool isNegative = *text == '-';
  const char* digits = *text == '-' || *text == '+' ? text + 1 : text;
  // Decimal numbers only: the device reads no words such as "nan".
  if (!IsDigit(digits[0]) && !(digits[0] == '.' && IsDigit(digits[1]))) {
    return 0;
  }
  double value = 0;
  const auto result = std::from_chars(digits, digits + std::strlen(digits), value);
  if (result.ec == std::errc::result_out_of_range) {
    value = convert(digits);
  }
  return isNegative ? -value : value;
}

}  // namespace handheld
