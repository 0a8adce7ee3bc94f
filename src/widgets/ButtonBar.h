#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "base/WideString.h"
#include "render/Picture.h"
#include "widgets/ButtonLayout.h"

namespace ferolin {

/// What is posted to the host when a button is tapped.
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

/// A bar of buttons that lies over a view. A visible bar fades out and hides after some frames,
/// unless it is touched.
///
/// All bars of all views share one countdown, which each visible bar takes down by one with every
/// frame: two of them take two at once. Used under the engine's data lock.
class ButtonBar {
 public:
  static constexpr int NO_BUTTON = -1;

  explicit ButtonBar(BarSide barSide) : side(barSide) {}

  /// An empty path, or one that cannot be loaded, leaves an empty place, which can be tapped all
  /// the same.
  void Add(const WideString& picturePath, const ButtonMessage& message);
  bool IsEmpty() const { return buttons.empty(); }
  void SetSide(BarSide newSide) { side = newSide; }

  void Show();
  void Hide();
  bool IsVisible() const { return visible; }

  /// Draws a visible bar into `dc`, which covers the window's client area, and counts down.
  void Draw(HDC dc, const RECT& client);

  /// The first button at that point of the window; NO_BUTTON when there is none or the bar is
  /// hidden. Any touch keeps a visible bar up.
  int HitTest(HWND window, int x, int y);

  /// Both ignore an index out of range.
  void Press(int index);
  const Button* GetButton(int index) const;

  /// No button is pressed any more. Returns whether one was.
  bool ReleaseButtons();

 private:
  std::vector<Button> buttons;
  BarSide side;
  bool visible = true;
};

/// How strongly the bars show (0 to 255) when the countdown stands there: they fade over the last
/// frames.
BYTE FadedAlpha(int countdown);

}  // namespace ferolin
