// Conversions and sums that give the nearest number an integer type holds, the same in all homes.
#pragma once

#include <concepts>
#include <cstdint>
#include <limits>

namespace ferolin {

/// `value` without its decimals; 0 for NaN.
template <std::signed_integral Integer>
constexpr Integer Saturated(double value) {
  constexpr Integer LOWEST = std::numeric_limits<Integer>::min();
  constexpr Integer HIGHEST = std::numeric_limits<Integer>::max();
  if (value != value) {
    return 0;
  }
  // A double holds 2^31 and 2^63, but not 2^63 - 1.
  if (value >= -static_cast<double>(LOWEST)) {
    return HIGHEST;
  }
  return value <= static_cast<double>(LOWEST) ? LOWEST : static_cast<Integer>(value);
}

template <std::signed_integral Integer>
constexpr Integer Saturated(std::int64_t value) {
  if (value > std::numeric_limits<Integer>::max()) {
    return std::numeric_limits<Integer>::max();
  }
  return value < std::numeric_limits<Integer>::min() ? std::numeric_limits<Integer>::min()
                                                     : static_cast<Integer>(value);
}

constexpr std::int64_t SaturatedSum(std::int64_t a, std::int64_t b) {
  std::int64_t sum = 0;
  if (!__builtin_add_overflow(a, b, &sum)) {
    return sum;
  }
  return b > 0 ? std::numeric_limits<std::int64_t>::max()
               : std::numeric_limits<std::int64_t>::min();
}

}  // namespace ferolin
