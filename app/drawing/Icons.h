// The small pictures of rows and buttons: lines on a grid of 48 steps each way.
#pragma once

#include "drawing/Shapes.h"

namespace app {

enum class Icon {
  NONE,
  LIMITS,
  READOUTS,
  RESET,
  RECEIVER,
  PICTURE,
  SCREEN,
  TRACK,
  BEEP,
  MESSAGE,
  THEME,
  ABOUT,
  QUIT,
  BACK,
  FORWARD,
  CHECK,
  PLUS,
  MINUS,
  ERASE,
  COUNT
};

/// Draws the icon into the square of `size` pixels at that corner.
void DrawIcon(Shapes& shapes, Icon icon, int left, int top, int size, Color color);

}  // namespace app
