#pragma once

#include <windows.h>

namespace ferolin {

/// Edge of the window along which a bar lies.
enum class BarSide { TOP, BOTTOM, LEFT, RIGHT };

/// Where the buttons of a bar lie, in device pixels of the window: a bar keeps its size however the
/// frame is turned. Buttons fill a line along the edge with equal gaps and go on in a second line
/// further inside. Bars at the top are filled from the left, at the bottom from the right, at the
/// sides from the bottom.
struct ButtonLayout {
  RECT GetRect(int index) const;
  /// Edges count on all four sides.
  bool IsHit(int index, int x, int y) const;

  BarSide side;
  RECT client;
  SIZE button;
};

}  // namespace ferolin
