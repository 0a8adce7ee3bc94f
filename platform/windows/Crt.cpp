// The C run-time calls of crt.h. The desktop's follow the locale that the host has set.

#include <crt.h>
#include <malloc.h>

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "../shared/DecimalText.h"

namespace {

int PrintedLength(int wanted, std::size_t size) {
  return wanted < 0 ? 0 : static_cast<int>(std::min(static_cast<std::size_t>(wanted), size - 1));
}

_locale_t PlainLocale() {
  static const _locale_t plain = _create_locale(LC_ALL, "C");
  return plain;
}

}  // namespace

extern "C" {

// The conversion comes from the caller, who passes the one kind of argument that it prints.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

int CrtPrintDouble(char* out, std::size_t size, const char* conversion, double value) {
  const int length = PrintedLength(std::snprintf(out, size, conversion, value), size);
  // One number holds at most one decimal point.
  const char* const localPoint = std::localeconv()->decimal_point;
  if (char* const found = std::strchr(out, *localPoint); found != nullptr) {
    *found = '.';
  }
  return length;
}

int CrtPrintInt(char* out, std::size_t size, const char* conversion, int value) {
  return PrintedLength(std::snprintf(out, size, conversion, value), size);
}

#pragma GCC diagnostic pop

double CrtParseDouble(const char* text) {
  return handheld::ParseDecimal(
      text, [](const char* digits) { return _strtod_l(digits, nullptr, PlainLocale()); });
}

std::int64_t CrtParseInt64(const char* text) {
  return _atoi64(text);
}

std::size_t CrtBlockSize(void* block) {
  return _msize(block);
}

}  // extern "C"
