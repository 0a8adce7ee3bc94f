// Lines one pixel wide.
#pragma once

#include <cstdint>

#include "gdi/Raster.h"

namespace handheld::gdi {

/// Pixels on the way from `from` to `to`, the end point not drawn.
void DrawThinLine(const Target& target, POINT from, POINT to, std::uint32_t pixel);

/// The dashes of a dashed pen, carried from one segment of a line to the next.
struct DashPosition {
  /// Pixels since the start of the pattern.
  std::uint32_t offset = 0;
};

/// As above in dashes of 18 pixels with gaps of 6. Gaps are painted too when `gap` is given.
void DrawDashedLine(const Target& target, POINT from, POINT to, std::uint32_t pixel,
                    const std::uint32_t* gap, DashPosition& dashes);

}  // namespace handheld::gdi
