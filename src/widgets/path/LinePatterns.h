#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "widgets/path/PathPicture.h"

namespace ferolin {

/// Which pixels short lines light. The drawing calls decide that, so each line is drawn once, into
/// a picture of its own, and looked at; where it begins makes no difference. Used under the
/// engine's data lock.
class LinePatterns {
 public:
  /// Lines lead at most so many pixels right or left, and up or down.
  static constexpr LONG FARTHEST = 7;

  static bool Cover(LONG right, LONG down) {
    return right >= -FARTHEST && right <= FARTHEST && down >= -FARTHEST && down <= FARTHEST;
  }

  /// Counted from the first pixel of a line.
  struct Pixel {
    std::int8_t right;
    std::int8_t down;
  };

  /// Makes the picture; only then may the rest be called. `model` is what its context is made like.
  /// False without memory.
  bool Prepare(HDC model);

  /// Of a line that leads so far right and down, which are covered and not both 0. The last pixel
  /// is left out, as always. Good as long as the patterns.
  std::span<const Pixel> PixelsTo(LONG right, LONG down) {
    Pattern& pattern =
        patterns[static_cast<std::size_t>((down + FARTHEST) * SIDE + right + FARTHEST)];
    if (pattern.count == 0) {
      Learn(right, down, pattern);
    }
    return std::span(pattern.pixels).first(pattern.count);
  }

 private:
  static constexpr LONG SIDE = 2 * FARTHEST + 1;
  static constexpr std::size_t WAYS = SIDE * SIDE;

  struct Pattern {
    std::uint8_t count = 0;  ///< 0: not known yet
    std::array<Pixel, FARTHEST> pixels;
  };

  void Learn(LONG right, LONG down, Pattern& pattern);

  PathPicture sample;
  std::array<Pattern, WAYS> patterns;
};

}  // namespace ferolin
