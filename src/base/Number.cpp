#include "base/Number.h"

#include <crt.h>

#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <limits>
#include <system_error>

namespace ferolin {

namespace {

/// Both a number below 10^15 and a power of ten up to 10^22 are exact doubles, so that one division
/// rounds once and gives the nearest double, as a full conversion does.
constexpr int MAX_EXACT_DIGITS = 15;
constexpr std::array<double, MAX_EXACT_DIGITS + 1> POWERS_OF_TEN = {
    1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

/// Reads [-]digits[.digits]; false when the text is anything else.
bool ParsePlainDecimal(const char* text, double& value) {
  const bool negative = *text == '-';
  if (negative) {
    ++text;
  }
  std::int64_t digits = 0;
  int count = 0;
  int decimals = 0;
  bool afterPoint = false;
  for (;; ++text) {
    if (IsDigit(*text)) {
      if (++count > MAX_EXACT_DIGITS) {
        return false;
      }
      digits = digits * 10 + (*text - '0');
      decimals += afterPoint ? 1 : 0;
    } else if (*text == '.' && !afterPoint) {
      afterPoint = true;
    } else {
      break;
    }
  }
  if (*text != '\0' || count == 0) {
    return false;
  }
  value = static_cast<double>(digits) / POWERS_OF_TEN[static_cast<std::size_t>(decimals)];
  if (negative) {
    value = -value;
  }
  return true;
}

/// Reads digits, as many as surely fit; false when the text is anything else.
bool ParsePlainInt(const char* text, int& value) {
  constexpr int MAX_DIGITS = std::numeric_limits<int>::digits10;
  int count = 0;
  for (value = 0; IsDigit(*text) && count < MAX_DIGITS; ++text, ++count) {
    value = value * 10 + (*text - '0');
  }
  return *text == '\0' && count > 0;
}

const char* SkipBlanks(const char* text) {
  return text + std::strspn(text, " \t\n\v\f\r");
}

}  // namespace

double ParseDouble(const char* text) {
  double value = 0;
  return ParsePlainDecimal(text, value) ? value : CrtParseDouble(text);
}

std::int64_t ParseInt64(const char* text) {
  const char* start = SkipBlanks(text);
  if (start[0] == '+' && IsDigit(start[1])) {
    ++start;
  }
  std::int64_t value = 0;
  const auto result = std::from_chars(start, start + std::strlen(start), value);
  if (result.ec == std::errc::result_out_of_range) {
    return *start == '-' ? std::numeric_limits<std::int64_t>::min()
                         : std::numeric_limits<std::int64_t>::max();
  }
  return value;
}

int ParseInt(const char* text) {
  int plain = 0;
  if (ParsePlainInt(text, plain)) {
    return plain;
  }
  const std::int64_t value = ParseInt64(text);
  if (value < std::numeric_limits<int>::min()) {
    return std::numeric_limits<int>::min();
  }
  if (value > std::numeric_limits<int>::max()) {
    return std::numeric_limits<int>::max();
  }
  return static_cast<int>(value);
}

}  // namespace ferolin
