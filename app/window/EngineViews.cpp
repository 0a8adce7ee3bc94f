#include "window/EngineViews.h"

#include <algorithm>
#include <cstdlib>

namespace app {

namespace {

/// Coordinate beside every button.
constexpr int NOWHERE = -10'000;

constexpr int BUTTON_SIZE = 50;  // at 96 dpi
constexpr int LOGICAL_DPI = 96;

int ButtonSize(HWND window) {
  const HDC dc = GetDC(window);
  const int size = GetDeviceCaps(dc, LOGPIXELSX) * BUTTON_SIZE / LOGICAL_DPI;
  ReleaseDC(window, dc);
  return std::max(size, 1);
}

}  // namespace

EngineViews::EngineViews(const LoadedEngine& engine, HWND window)
    : engine(engine), window(window), notification(engine.GetWndMessageID()) {
  // With a window the engine learns its shape, without a view it draws nothing yet.
  engine.SetCurRenderWidget(FEROLIN_VIEW_NONE);
  engine.SetRenderWindow(window);
}

void EngineViews::SetView(int newView) {
  view = std::clamp(newView, 0, std::max(engine.GetWidgetsCount() - 1, 0));
}

void EngineViews::Show() {
  areShown = true;
  engine.SetCurRenderWidget(view);
  engine.SetRenderWindow(window);
  Redraw();
}

void EngineViews::Hide() {
  areShown = false;
  engine.SetRenderWindow(nullptr);
}

void EngineViews::GoBy(int step) {
  const int count = engine.GetWidgetsCount();
  if (count > 0) {
    view = (view + step + count) % count;
    engine.SetCurRenderWidget(view);
    RedrawWithButtons();
  }
}

/// The engine presents its last frame at every touch.
void EngineViews::PresentAgain() {
  engine.OnMouseDown(window, NOWHERE, NOWHERE);
  engine.OnMouseUp(window, NOWHERE, NOWHERE);
}

/// The engine draws a new frame when a button was pressed. Hidden ones are brought up for that and
/// hidden again; the last call covers a frame that was drawn in between.
void EngineViews::Redraw() {
  if (!TouchFirstButton()) {
    engine.OnDoubleClick();
    TouchFirstButton();
    engine.OnDoubleClick();
    PresentAgain();
  }
}

/// A view that has just been chosen shows its buttons.
void EngineViews::RedrawWithButtons() {
  if (!TouchFirstButton()) {
    engine.OnDoubleClick();
    TouchFirstButton();
  }
}

void EngineViews::ToggleButtons() {
  engine.OnDoubleClick();
  PresentAgain();
}

void EngineViews::ToggleMirror() {
  engine.SetInvertHorz(engine.GetInvertHorz() == 0 ? 1 : 0);
  PresentAgain();
}

void EngineViews::ToggleFlip() {
  engine.SetInvertVert(engine.GetInvertVert() == 0 ? 1 : 0);
  PresentAgain();
}

/// The last frame has the old shape.
void EngineViews::ToggleTurn() {
  engine.SetInvertOrient(engine.GetInvertOrient() == 0 ? 1 : 0);
  Redraw();
}

void EngineViews::ToggleColors() {
  engine.SetInvertColor(engine.GetInvertColor() == 0 ? 1 : 0);
  PresentAgain();
}

/// Touches a button of the common bar. The bar lies at the top or, if the window was wider than high
/// at the last update, at the left, filled from the bottom. The point at the top is tried first: it
/// lies on no button of the view's own. False when the buttons are hidden.
bool EngineViews::TouchFirstButton() {
  RECT client = {};
  GetClientRect(window, &client);
  const int size = ButtonSize(window);
  const auto middle = [size](LONG length) { return length / std::max<LONG>(length / size, 1) / 2; };
  return TouchButton({middle(client.right), size / 2}) ||
         TouchButton({size / 2, client.bottom - middle(client.bottom)});
}

/// Presses and releases a button and drops the notification that follows. False when none does:
/// there is no button.
bool EngineViews::TouchButton(POINT point) {
  DispatchNotifications();
  engine.OnMouseDown(window, point.x, point.y);
  engine.OnMouseUp(window, point.x, point.y);
  bool hasAnswered = false;
  MSG message;
  while (PeekMessageW(&message, window, notification, notification, PM_REMOVE)) {
    if (message.lParam == FEROLIN_BUTTON_NONE) {
      DispatchMessageW(&message);
    } else {
      hasAnswered = true;
    }
  }
  return hasAnswered;
}

void EngineViews::DispatchNotifications() const {
  MSG message;
  while (PeekMessageW(&message, window, notification, notification, PM_REMOVE)) {
    DispatchMessageW(&message);
  }
}

void EngineViews::OnPress(POINT point) {
  wasButton = false;
  isSecondTap = false;
  pressed = point;
  engine.OnMouseDown(window, point.x, point.y);
}

/// Two quick taps on an arrow go on by two views; they must not hide the arrow. Where the first tap
/// has brought the buttons up, the second one must not hide them.
void EngineViews::OnDoubleClick(POINT point) {
  if (!wasButton && !hasBroughtButtons) {
    engine.OnDoubleClick();
  }
  wasButton = false;
  isSecondTap = true;
  pressed = point;
  engine.OnMouseDown(window, point.x, point.y);
}

void EngineViews::OnDrag(POINT point) {
  engine.OnMouseMove(window, point.x, point.y);
}

/// A button's notification comes before the tap is looked at, so that no button is lost.
void EngineViews::OnRelease(POINT point) {
  engine.OnMouseUp(window, point.x, point.y);
  DispatchNotifications();
  hasBroughtButtons = false;
  if (wasButton || isSecondTap || !areShown || !IsTap(point)) {
    return;
  }
  if (!TouchFirstButton()) {
    hasBroughtButtons = true;
    ToggleButtons();
  }
}

bool EngineViews::IsTap(POINT released) const {
  const int farthest = ButtonSize(window) / 4;
  return std::abs(released.x - pressed.x) <= farthest &&
         std::abs(released.y - pressed.y) <= farthest;
}

}  // namespace app
