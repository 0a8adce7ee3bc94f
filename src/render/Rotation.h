#pragma once

#include <cstdint>

namespace ferolin {

/// Pixels from one row to the next of a 16-bit bitmap. Rows fill whole 32-bit words.
constexpr int RowLength16(int width) {
  return (width + 1) & ~1;
}

/// Turns a 16-bit bottom-up bitmap of `width` x `height` pixels by 90 degrees clockwise into one of
/// `height` x `width`.
void RotateClockwise(const std::uint16_t* source, int width, int height, std::uint16_t* target);

}  // namespace ferolin
