// Circles that are drawn pixel by pixel.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>

namespace handheld::fine {

/// Recognises a thin circle by its first four pixels: a program that draws a quarter of it and
/// mirrors each pixel into the other three begins with the lowest, the highest, and both again.
class DotRing {
 public:
  enum class Meaning {
    /// A pixel for itself.
    DOT,
    /// The circle is known now.
    RING,
    /// Lies on the circle known last.
    PART_OF_RING,
  };
  Meaning Take(POINT dot, std::uint32_t rgb);

  POINT GetCentre() const { return centre; }
  int GetRadius() const { return radius; }

 private:
  bool LiesOnRing(POINT dot) const;

  std::array<POINT, 4> latest = {};
  std::uint32_t color = 0;
  POINT centre = {0, 0};
  /// 0 while no circle is known.
  int radius = 0;
};

}  // namespace handheld::fine
