// Lines of pens wider than one pixel.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "gdi/Raster.h"

namespace handheld::gdi {

/// Draws as Windows does: each segment a filled polygon, each corner and end a disc.
class WidePen {
 public:
  /// Width in pixels, above 1.
  explicit WidePen(int width);

  /// At least two points.
  void Draw(const Target& target, std::span<const POINT> points, std::uint32_t pixel) const;
  /// Draws the lines and closes them to the first point.
  void DrawClosed(const Target& target, std::span<const POINT> points, std::uint32_t pixel) const;

 private:
  void DrawSegment(const Target& target, POINT from, POINT to, std::uint32_t pixel) const;
  void DrawDisc(const Target& target, POINT center, std::uint32_t pixel) const;

  int width;
  /// Inset of each row of the disc in pixels.
  std::vector<int> disc;
};

}  // namespace handheld::gdi
