// Lines and outlined shapes in twins.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <span>

#include "fine/Twin.h"

namespace handheld::fine {

struct PenLook {
  /// In logical pixels, at least 1.
  int width;
  std::uint32_t rgb;
};

/// Draws through all points, at least two. A thin line that is not closed leaves out its last pixel
/// when it is straight and level or upright.
void DrawLines(Twin& twin, std::span<const POINT> points, bool isClosed, const PenLook& pen);

/// Draws a thin line of dashes of 18 pixels and gaps of 6, counted along its longer axis, without
/// its last pixel. Starts `offset` pixels after the start of a dash. Dashes of slanted lines have
/// round ends. Gaps are drawn in the colour `gap`, if there is one.
void DrawDashes(Twin& twin, POINT from, POINT to, std::uint32_t offset, std::uint32_t rgb,
                std::optional<std::uint32_t> gap);

/// A rectangle whose corners are quarters of an ellipse of that size. Without `pen` it has no
/// outline, without `fill` it is empty.
struct RoundedLook {
  RECT rect;
  int cornerWidth;
  int cornerHeight;
  std::optional<PenLook> pen;
  std::optional<std::uint32_t> fill;
};
void DrawRounded(Twin& twin, const RoundedLook& shape);

}  // namespace handheld::fine
