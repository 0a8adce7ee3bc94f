#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "base/WideString.h"
#include "render/Picture.h"
#include "widgets/ButtonLayout.h"

namespace ferolin {

class BarCountdown;

/// Message posted to the host when a button is tapped.
struct ButtonMessage {
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
};

struct Button {
  ButtonMessage message;
  std::unique_ptr<Picture> picture;  ///< null when the file could not be loaded
  bool pressed = false;
};

/// A bar of buttons that lies over a view. A visible bar fades out and hides when the countdown has
/// run out; any touch on it restarts the countdown. Used under the engine's data lock.
class ButtonBar {
 public:
  static constexpr int NO_BUTTON = -1;

  /// Bars share the countdown; it outlives them.
  ButtonBar(BarSide side, BarCountdown& countdown) : side(side), countdown(countdown) {}

  /// An empty path, or a file that cannot be loaded, leaves an empty place. It can be tapped all
  /// the same.
  void Add(const WideString& picturePath, const ButtonMessage& message);
  bool IsEmpty() const { return buttons.empty(); }
  void SetSide(BarSide newSide) { side = newSide; }

  void Show();
  void Hide();
  bool IsVisible() const { return visible; }

  /// Draws a visible bar into `dc`, which covers the window's client area, and counts down.
  void Draw(HDC dc, const RECT& client);

  /// Index of the first button at that point of the window; NO_BUTTON when there is none or the bar
  /// is hidden.
  int HitTest(HWND window, int x, int y);

  /// Does nothing for an index out of range.
  void Press(int index);
  /// Null for an index out of range.
  const Button* GetButton(int index) const;

  /// Releases all buttons. Returns whether one was pressed.
  bool ReleaseButtons();

 private:
  std::vector<Button> buttons;
  BarSide side;
  BarCountdown& countdown;
  bool visible = true;
};

}  // namespace ferolin
