// Draws rows.
#pragma once

#include <windows.h>

#include "pages/Row.h"

namespace app {

class Painter;
class Session;

/// A part of a row that can be pressed: the buttons of a stepper lower and raise, all else is the
/// row itself.
enum class RowPart { LOWER = -1, WHOLE = 0, RAISE = 1 };

class RowPainter {
 public:
  struct State {
    bool isPressed = false;
    bool isFocused = false;
    RowPart part = RowPart::WHOLE;  ///< the one pressed or focused
    bool isArmed = false;           ///< waits for the second tap
  };

  RowPainter(Painter& painter, const Session& session) : painter(painter), session(session) {}

  /// `rect` is the row's place in the window.
  void Draw(const Row& row, const RECT& rect, const State& state);

 private:
  void DrawSwitch(const RECT& rect, bool isOn, bool isEnabled);
  void DrawStepButtons(const RECT& rect, const State& state);
  /// Draws icon, label and value into what the controls at the right leave free.
  void DrawTexts(const Row& row, const RECT& rect, const State& state, int right, bool isEnabled);
  void DrawReadout(const Row& row, const RECT& rect);
  WideString GetLabel(const Row& row) const;
  WideString GetValue(const Row& row, const State& state) const;

  Painter& painter;
  const Session& session;
};

}  // namespace app
