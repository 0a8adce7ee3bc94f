#pragma once

#include <windows.h>

namespace ferolin {

/// Edge of the window along which a bar lies.
enum class BarSide { TOP, BOTTOM, LEFT, RIGHT };

/// Places of a bar's buttons, in device pixels of the window: turning the frame does not change the
/// bar. Buttons fill a line along the edge with equal gaps; the rest fills further lines inside of
/// it. Lines at the top are filled from the left, at the bottom from the right, at the sides from
/// the bottom.
struct ButtonLayout {
  RECT GetRect(int index) const;
  /// Whether the point lies on the button. All four edges belong to it.
  bool IsHit(int index, int x, int y) const;

  BarSide side;
  RECT client;
  SIZE button;
};

}  // namespace ferolin
