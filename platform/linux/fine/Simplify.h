// Lines with fewer points.
#pragma once

#include <windows.h>

#include <span>
#include <vector>

namespace handheld::fine {

/// Leaves out points next to which the line still passes within 0.6 pixels: those that only tell of
/// the rounding to whole pixels. First and last point stay.
std::vector<POINT> Simplify(std::span<const POINT> points);

}  // namespace handheld::fine
