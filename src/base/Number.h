// Numbers in 8-bit text.
#pragma once

#include <cstdint>

namespace ferolin {

/// Number at the start of `text` after optional blanks, as `atof` reads it; 0 when there is none.
/// Plain decimals with up to 15 digits, which is all that receivers send, are read without the C
/// run-time and to the same bit.
double ParseDouble(const char* text);

/// Whole number at the start of `text` after optional blanks, as `atoi` and `_atoi64` read it; 0
/// when there is none. Numbers out of range give the nearest one in range.
std::int64_t ParseInt64(const char* text);
int ParseInt(const char* text);

}  // namespace ferolin
