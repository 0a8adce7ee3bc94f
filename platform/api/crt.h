// C run-time calls whose names or results differ between homes. They do not depend on the process's
// locale: numbers have decimal points even when the host has set a comma locale.
#pragma once

#include <windef.h>

#include <cstddef>
#include <cstdint>

extern "C" {
/// Prints one value through a single printf conversion such as "%.1f" or "%g" into `out`, cut to
/// `size` - 1 characters and always terminated (`size` > 0). Returns the number of characters now
/// in `out`. One call for each kind of argument, since homes pass variadic doubles differently.
int CrtPrintDouble(char* out, std::size_t size, const char* conversion, double value);
int CrtPrintInt(char* out, std::size_t size, const char* conversion, int value);

/// Number at the start of `text` after optional blanks; 0 when there is none.
double CrtParseDouble(const char* text);
std::int64_t CrtParseInt64(const char* text);

/// Usable size in bytes of a block from malloc or realloc.
std::size_t CrtBlockSize(void* block);
}
