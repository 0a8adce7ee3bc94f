#include <crt.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <system_error>

#include "../../shared/DecimalText.h"

namespace handheld {

namespace {

locale_t PlainLocale() {
  static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
  return plain;
}

/// Gives this thread the plain locale, with decimal points, while it lives. Costs two stores.
class PlainLocaleScope {
 public:
  PlainLocaleScope() : before(uselocale(PlainLocale())) {}
  ~PlainLocaleScope() { uselocale(before); }
  PlainLocaleScope(const PlainLocaleScope&) = delete;
  PlainLocaleScope& operator=(const PlainLocaleScope&) = delete;

 private:
  const locale_t before;
};

/// Format and precision of a conversion such as "%.1f".
struct Conversion {
  std::chars_format format;
  int precision;
};

/// Reads conversions without width and flags, which are nearly all; no value for others.
std::optional<Conversion> ReadConversion(const char* text) {
  constexpr int DEFAULT_PRECISION = 6;
  if (*text++ != '%') {
    return std::nullopt;
  }
  int precision = DEFAULT_PRECISION;
  if (text[0] == '.' && text[1] >= '0' && text[1] <= '9') {
    precision = text[1] - '0';
    text += 2;
  }
  const char letter = *text;
  if (letter == 0 || text[1] != 0) {
    return std::nullopt;
  }
  if (letter == 'f') {
    return Conversion{std::chars_format::fixed, precision};
  }
  if (letter == 'g') {
    return Conversion{std::chars_format::general, precision};
  }
  return std::nullopt;
}

constexpr std::array<double, 7> POWERS_OF_TEN = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6};

/// Prints numbers of up to six decimals below 2^31; returns the end of the text. Null for others
/// and where the rounding is in doubt: so near to a tie that the product's last bits could decide.
char* PrintFixed(char* out, std::size_t size, double value, std::size_t decimals) {
  constexpr std::size_t LONGEST = sizeof "-2147483648.000000";
  constexpr double DOUBT = 1e-6;
  const double magnitude = std::fabs(value);
  if (size < LONGEST || decimals >= POWERS_OF_TEN.size() || !(magnitude < 0x1p31)) {
    return nullptr;
  }
  auto whole = static_cast<std::uint32_t>(magnitude);
  const double scaled = (magnitude - whole) * POWERS_OF_TEN[decimals];
  auto fraction = static_cast<std::uint32_t>(scaled);
  const double rest = scaled - fraction;
  if (std::fabs(rest - 0.5) < DOUBT) {
    return nullptr;
  }
  fraction += rest > 0.5 ? 1 : 0;
  if (fraction == static_cast<std::uint32_t>(POWERS_OF_TEN[decimals])) {
    fraction = 0;
    ++whole;
  }
  if (std::signbit(value)) {
    *out++ = '-';
  }
  out = std::to_chars(out, out + LONGEST, whole).ptr;
  if (decimals == 0) {
    return out;
  }
  *out = '.';
  for (char* digit = out + decimals; digit != out; --digit) {
    *digit = static_cast<char>('0' + fraction % 10);
    fraction /= 10;
  }
  return out + 1 + decimals;
}

/// Whether "%g" with this precision prints the value without a decimal point or an exponent.
bool IsWholeInGeneral(double value, int precision) {
  constexpr int DIGITS = 6;
  return precision >= DIGITS && std::fabs(value) < POWERS_OF_TEN[DIGITS] &&
         value == std::trunc(value);
}

/// Prints the digits of printf in half its time, as read-outs are printed for every update. No
/// value where printf has to do it, such as for a text that does not fit.
std::optional<int> PrintQuickly(char* out, std::size_t size, const char* conversion, double value) {
  const auto wanted = ReadConversion(conversion);
  if (!wanted || !std::isfinite(value)) {
    return std::nullopt;
  }
  const bool isFixed = wanted->format == std::chars_format::fixed;
  if (isFixed || IsWholeInGeneral(value, wanted->precision)) {
    const int decimals = isFixed ? wanted->precision : 0;
    if (char* end = PrintFixed(out, size, value, static_cast<std::size_t>(decimals))) {
      *end = 0;
      return static_cast<int>(end - out);
    }
  }
  const auto result = std::to_chars(out, out + size - 1, value, wanted->format, wanted->precision);
  if (result.ec != std::errc()) {
    return std::nullopt;
  }
  *result.ptr = 0;
  return static_cast<int>(result.ptr - out);
}

int PrintedLength(int wanted, std::size_t size) {
  return wanted < 0 ? 0 : static_cast<int>(std::min(static_cast<std::size_t>(wanted), size - 1));
}

}  // namespace

extern "C" {

// The conversion comes from the caller, who passes the one kind of argument that it prints.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

int CrtPrintDouble(char* out, std::size_t size, const char* conversion, double value) {
  if (const auto length = PrintQuickly(out, size, conversion, value)) {
    return *length;
  }
  const PlainLocaleScope plain;
  return PrintedLength(std::snprintf(out, size, conversion, value), size);
}

int CrtPrintInt(char* out, std::size_t size, const char* conversion, int value) {
  const PlainLocaleScope plain;
  return PrintedLength(std::snprintf(out, size, conversion, value), size);
}

#pragma GCC diagnostic pop

double CrtParseDouble(const char* text) {
  return ParseDecimal(text,
                      [](const char* digits) { return strtod_l(digits, nullptr, PlainLocale()); });
}

std::int64_t CrtParseInt64(const char* text) {
  return std::strtoll(text, nullptr, 10);
}

std::size_t CrtBlockSize(void* block) {
  return malloc_usable_size(block);
}

}  // extern "C"

}  // namespace handheld
