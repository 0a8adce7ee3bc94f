// The page on which telephone numbers are typed.
#pragma once

#include "pages/Screen.h"

namespace app {

class Session;

class Keypad : public Screen {
 public:
  /// Starts with the present recipients. The session outlives the page.
  explicit Keypad(Session& session);

  void Draw(Painter& target) override;
  void OnPress(POINT point) override;
  Outcome OnRelease(POINT point) override;
  Outcome OnKey(WPARAM key) override;

 private:
  static constexpr int NO_KEY = -1;
  static constexpr int BACK = -2;

  /// Small screens have no room for a title: the number stands in its place then.
  bool IsSmall(const Painter& target) const;
  RECT GetFieldRect(const Painter& target) const;
  RECT GetKeyRect(const Painter& target, int key) const;
  int FindKey(POINT point) const;
  void DrawField(Painter& target) const;
  void DrawKey(Painter& target, int key) const;
  Outcome Activate(int key);
  void Append(WCHAR character);
  void MoveFocus(int columns, int rows);
  Outcome Accept();

  Session& session;
  WideString number;
  const Painter* painter = nullptr;  ///< that of the last drawing
  int pressed = NO_KEY;
  int focused = NO_KEY;
};

}  // namespace app
