#include <crt.h>
#include <malloc.h>

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cmath>
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

/// Prints the digits of printf in half its time, as read-outs are printed for every update. No
/// value where printf has to do it, such as for a text that does not fit.
std::optional<int> PrintQuickly(char* out, std::size_t size, const char* conversion, double value) {
  const auto wanted = ReadConversion(conversion);
  if (!wanted || !std::isfinite(value)) {
    return std::nullopt;
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
