#include "widgets/Widget.h"

#include <ferolin.h>

#include <cstdlib>

#include "base/Lock.h"
#include "base/Number.h"
#include "render/Canvas.h"
#include "sensors/Sensor.h"
#include "widgets/WidgetOwner.h"

namespace ferolin {

namespace {

struct NavigationButton {
  const WCHAR* file;
  LPARAM code;
};

/// A bar at the bottom is filled from the right, so the arrows point outwards.
constexpr NavigationButton NAVIGATION_BUTTONS[] = {
    {TEXT("\\Pics\\BtnRight.png"), FEROLIN_BUTTON_NEXT_VIEW},
    {TEXT("\\Pics\\BtnFlipHor.png"), FEROLIN_BUTTON_FLIP_HORIZONTALLY},
    {TEXT("\\Pics\\BtnRotateScreen.png"), FEROLIN_BUTTON_ROTATE_SCREEN},
    {TEXT("\\Pics\\BtnLeft.png"), FEROLIN_BUTTON_PREVIOUS_VIEW},
};

bool IsShown(HWND window) {
  return IsWindow(window) && IsWindowVisible(window);
}

}  // namespace

Widget::Widget(std::string name, WidgetOwner& owner)
    : owner(owner),
      commonBar(BarSide::TOP, owner.GetBarCountdown()),
      ownBar(BarSide::BOTTOM, owner.GetBarCountdown()),
      name(std::move(name)) {}

void Widget::Draw(HWND window) {
  Canvas& canvas = theCanvas;
  canvas.BeginFrame(window);
  canvas.FillBackground(backgroundColor);
  if (CanPaint()) {
    Paint(canvas);
    canvas.PresentTransformed();
  }
  FinishFrame(canvas);
}

/// The back buffer still holds the last frame: only the bars change.
void Widget::PresentAgain() {
  Canvas& canvas = theCanvas;
  canvas.BeginFrame(owner.GetRenderWindow());
  canvas.PresentTransformed();
  FinishFrame(canvas);
}

void Widget::FinishFrame(Canvas& canvas) {
  DrawOverlay(canvas);
  canvas.FlushToWindow();
}

/// Draws the bars over the presented frame.
void Widget::DrawOverlay(Canvas& canvas) {
  const HWND window = owner.GetRenderWindow();
  if (IsShown(window)) {
    RECT client = {};
    GetClientRect(window, &client);
    commonBar.Draw(canvas.GetPresentDC(), client);
    ownBar.Draw(canvas.GetPresentDC(), client);
  }
}

/// Without an SMS library an empty place keeps the other buttons in their places.
void Widget::CreateCommonButtons() {
  if (!commonBar.IsEmpty()) {
    return;
  }
  AddButton(commonBar, TEXT("\\Pics\\BtnResetAll.png"), FEROLIN_BUTTON_RESET_ALL);
  if (owner.CanSendSms()) {
    AddButton(commonBar, TEXT("\\Pics\\BtnSMS.png"), FEROLIN_BUTTON_SEND_SMS);
  } else {
    commonBar.Add(WideString(), {0, 0, 0});
  }
  AddButton(commonBar, TEXT("\\Pics\\BtnOptions.png"), FEROLIN_BUTTON_OPTIONS);
  AddButton(commonBar, TEXT("\\Pics\\BtnClose.png"), FEROLIN_BUTTON_CLOSE);
}

void Widget::CreateNavigationButtons() {
  if (!ownBar.IsEmpty()) {
    return;
  }
  for (const NavigationButton& button : NAVIGATION_BUTTONS) {
    AddButton(ownBar, button.file, button.code);
  }
}

POINT Widget::ToFrame(POINT windowPoint) {
  return theCanvas.ToFrame(windowPoint);
}

void Widget::AddButton(ButtonBar& bar, const WCHAR* file, LPARAM code) {
  bar.Add(owner.GetModuleDir() + file, {owner.GetMessageId(), 0, code});
}

void Widget::Attach() {
  CreateCommonButtons();
  CreateOwnButtons();
  RECT rect;
  if (!GetWindowRect(owner.GetRenderWindow(), &rect)) {
    return;
  }
  const bool isPortrait = rect.right - rect.left <= rect.bottom - rect.top;
  commonBar.SetSide(isPortrait ? BarSide::TOP : BarSide::LEFT);
  ownBar.SetSide(isPortrait ? BarSide::BOTTOM : BarSide::RIGHT);
}

void Widget::OnMouseDown(HWND window, POINT point) {
  const LockGuard guard(owner.GetDataLock());
  isMouseDown = true;
  lastPoint = point;
  if (const int index = commonBar.HitTest(window, point.x, point.y);
      index != ButtonBar::NO_BUTTON) {
    commonBar.Press(index);
  } else {
    ownBar.Press(ownBar.HitTest(window, point.x, point.y));
  }
  PresentAgain();
}

void Widget::OnMouseUp(HWND window, POINT point) {
  bool wasPressed = false;
  {
    const LockGuard guard(owner.GetDataLock());
    isMouseDown = false;
    wasPressed |= ownBar.ReleaseButtons();
    wasPressed |= commonBar.ReleaseButtons();
    PresentAgain();
  }
  if (wasPressed) {
    owner.RequestRedraw();
  }
  const LockGuard guard(owner.GetDataLock());
  if (PostButtonAt(window, point)) {
    ShowBars();
  } else {
    PostSwipe(window, point);
  }
}

const Button* Widget::GetButtonAt(HWND window, POINT point) {
  const Button* button = commonBar.GetButton(commonBar.HitTest(window, point.x, point.y));
  return button != nullptr ? button : ownBar.GetButton(ownBar.HitTest(window, point.x, point.y));
}

/// Posts the message of the button at that point; false when there is none.
bool Widget::PostButtonAt(HWND window, POINT point) {
  const Button* button = GetButtonAt(window, point);
  if (button == nullptr) {
    return false;
  }
  owner.PostToHost(button->message.message, button->message.wParam, button->message.lParam);
  return true;
}

/// A swipe goes further across than up or down, and over more than half of the window's width.
void Widget::PostSwipe(HWND window, POINT point) {
  const int dx = point.x - lastPoint.x;
  const int dy = point.y - lastPoint.y;
  RECT rect = {};
  GetWindowRect(window, &rect);
  if (std::abs(dx) > std::abs(dy) && std::abs(dx) > (rect.right - rect.left) / 2) {
    owner.PostToHost(owner.GetMessageId(), 0,
                     dx < 1 ? FEROLIN_BUTTON_NEXT_VIEW : FEROLIN_BUTTON_PREVIOUS_VIEW);
  }
}

void Widget::ToggleBars() {
  if (commonBar.IsVisible()) {
    commonBar.Hide();
    ownBar.Hide();
  } else {
    ShowBars();
  }
}

void Widget::ShowBars() {
  commonBar.Show();
  ownBar.Show();
}

const char* Widget::GetSensorText(int index) const {
  const Sensor* sensor = owner.GetSensor(index);
  return sensor != nullptr ? sensor->GetValueText() : "";
}

double Widget::GetSensorNumber(int index) const {
  return ParseDouble(GetSensorText(index));
}

}  // namespace ferolin
