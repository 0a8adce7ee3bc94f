// What a page is to the window: something that is drawn and touched.
#pragma once

#include <windows.h>

#include "pages/Row.h"

namespace app {

class Painter;

/// Points are in pixels of the window's client area. Every call may change what is to be seen.
class Screen {
 public:
  /// What the page wants of the window after a touch or key.
  struct Outcome {
    PageId open = PageId::NONE;
    bool close = false;
  };

  Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  virtual ~Screen() = default;

  /// Draws the whole page. Called before all other methods.
  virtual void Draw(Painter& painter) = 0;

  virtual void OnPress(POINT point) = 0;
  virtual void OnDrag(POINT) {}
  virtual Outcome OnRelease(POINT point) = 0;
  /// `key` is the code of a key.
  virtual Outcome OnKey(WPARAM key) = 0;

  /// Every `STEP_MS` milliseconds after a press while `IsMoving`: holding a button down repeats it,
  /// a page that was flung goes on scrolling.
  static constexpr UINT STEP_MS = 40;
  virtual void OnStep() {}
  virtual bool IsMoving() const { return false; }

  /// Whether values change by themselves, with every update.
  virtual bool IsLive() const { return false; }
};

}  // namespace app
