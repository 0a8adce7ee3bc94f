// Texts as wide and high in all homes, whatever fonts there are, and nothing to be seen of them.
#pragma once

#include <windows.h>

namespace app {

/// Stands in for DrawTextW.
inline int DrawNoText(int length, RECT* rect, UINT format) {
  constexpr int CHARACTER_WIDTH = 6;
  constexpr int HEIGHT = 12;
  if ((format & DT_CALCRECT) != 0) {
    rect->right = rect->left + length * CHARACTER_WIDTH;
    rect->bottom = rect->top + HEIGHT;
  }
  return HEIGHT;
}

}  // namespace app
