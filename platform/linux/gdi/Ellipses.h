// Outlines and interiors of ellipses and rectangles with rounded corners.
#pragma once

#include <cstdint>
#include <vector>

#include "gdi/Raster.h"

namespace handheld::gdi {

/// A rectangle with rounded corners; an ellipse when the corners meet. All sizes are above 0 and
/// the corners no larger than the rectangle.
struct RoundedRect {
  RECT rect;
  int cornerWidth;
  int cornerHeight;
};

/// Points of the closed outline in drawing order, each next to the one before it where the curve
/// runs.
std::vector<POINT> OutlineOf(const RoundedRect& shape);

/// Fills the inside and the outline.
void FillRounded(const Target& target, const RoundedRect& shape, std::uint32_t pixel);

/// Inset of each row of an ellipse of this size at both sides, in pixels, from the top row down.
std::vector<int> EllipseInsets(int width, int height);

}  // namespace handheld::gdi
