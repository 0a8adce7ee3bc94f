// Lines one pixel wide.
#pragma once

#include <cstdint>
#include <span>

#include "gdi/Raster.h"

namespace handheld::gdi {

/// Draws a line through all points, without the last one.
void DrawThinLines(const Target& target, std::span<const POINT> points, std::uint32_t pixel);

/// Position in the dash pattern, carried from one segment of a line to the next.
struct DashPosition {
  /// Pixels since the start of the pattern.
  std::uint32_t offset = 0;

  /// Moves on by a segment.
  void GoOn(POINT from, POINT to);
};

/// Draws from `from` to `to` without the end point, in dashes of 18 pixels and gaps of 6. Gaps are
/// painted when `gap` is not null.
void DrawDashedLine(const Target& target, POINT from, POINT to, std::uint32_t pixel,
                    const std::uint32_t* gap, DashPosition& dashes);

}  // namespace handheld::gdi
