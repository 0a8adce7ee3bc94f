#pragma once

#include <bit>
#include <cstdint>

namespace ferolin {

/// Marks every number of GPS origin that is not known. Readers test for it before use.
constexpr int MISSING_VALUE = -9999;
constexpr float MISSING_FLOAT = -9999.0F;

/// Compares the bits, of which this number has just one pattern: handhelds compute with single
/// precision in software.
inline bool IsMissing(float value) {
  return std::bit_cast<std::uint32_t>(value) == std::bit_cast<std::uint32_t>(MISSING_FLOAT);
}

}  // namespace ferolin
