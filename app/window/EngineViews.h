// The engine's views in the window.
#pragma once

#include <windows.h>

#include "engine/LoadedEngine.h"

namespace app {

/// For the window's thread. The engine outlives it.
class EngineViews {
 public:
  EngineViews(const LoadedEngine& engine, HWND window);
  EngineViews(const EngineViews&) = delete;

  /// The view chosen, also while none is shown.
  int GetView() const { return view; }
  void SetView(int newView);

  /// Draws views from now on, the first frame at once. Call after the first update: views know what
  /// to draw only then.
  void Show();
  /// Takes the window away from the engine; once this returns nothing is drawn into it.
  void Hide();
  bool AreShown() const { return areShown; }

  /// Goes on to another view.
  void GoBy(int step);

  /// Presents the last frame again, as the choices of the picture want it now.
  void PresentAgain();
  /// Draws a new frame without waiting for the next update.
  void Redraw();
  void ToggleButtons();

  // Choices of the picture, seen at once.

  void ToggleMirror();
  void ToggleFlip();
  void ToggleTurn();
  void ToggleColors();

  // Touches.

  void OnPress(POINT point);
  void OnDoubleClick(POINT point);
  void OnDrag(POINT point);
  void OnRelease(POINT point);
  /// A button or swipe was answered: notifications of the engine that name one end here.
  void NoteButton() { wasButton = true; }

 private:
  void RedrawWithButtons();
  /// Hands the engine's notifications that wait to the window.
  void DispatchNotifications() const;
  bool TouchFirstButton();
  bool TouchButton(POINT point);
  bool IsTap(POINT released) const;

  const LoadedEngine& engine;
  const HWND window;
  const UINT notification;
  int view = FEROLIN_VIEW_SPEEDOMETER;
  bool areShown = false;
  POINT pressed = {};
  bool wasButton = false;
  bool isSecondTap = false;
  /// Whether the last tap has brought the buttons up.
  bool hasBroughtButtons = false;
};

}  // namespace app
