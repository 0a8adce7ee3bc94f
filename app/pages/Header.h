// The head of a page: the button back and the title.
#pragma once

#include <windows.h>

#include "base/WideString.h"

namespace app {

class Painter;

namespace header {

/// Height in pixels.
int GetHeight(const Painter& painter);

/// The place for the title, or for what stands there instead.
RECT GetTitleRect(const Painter& painter, bool hasBack);

struct State {
  bool hasBack;
  bool isPressed;
  bool isFocused;
};
/// Draws head and button; the title as well unless it is empty.
void Draw(Painter& painter, const ferolin::WideString& title, const State& state);

/// Whether the point lies on the button.
bool IsBackAt(const Painter& painter, POINT point);

}  // namespace header

}  // namespace app
