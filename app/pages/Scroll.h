// How far a page is scrolled, by dragging and flinging.
#pragma once

#include <windows.h>

namespace app {

/// All lengths in pixels.
class Scroll {
 public:
  int GetOffset() const { return offset; }
  int GetFarthest() const { return farthest; }

  /// The page's contents are so much higher than its window.
  void SetFarthest(int pixels);
  void MoveTo(int newOffset);

  /// The finger goes down; stops a page that scrolls.
  void Press(int y);
  /// True once the finger has moved so far that it drags: more than `threshold`.
  bool Drag(int y, int threshold);
  /// The finger leaves: the page goes on as fast as it was dragged last.
  void Release();
  bool IsDragging() const { return isDragging; }

  /// One step of a page that was flung, `milliseconds` after the last one.
  void Step(int milliseconds);
  bool IsFlung() const { return !isDragging && speed != 0; }

 private:
  int offset = 0;
  int farthest = 0;
  bool isDragging = false;
  int pressedY = 0;
  int lastY = 0;
  DWORD lastMs = 0;
  /// Pixels a second, downwards through the page.
  int speed = 0;
};

}  // namespace app
