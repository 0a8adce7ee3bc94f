#include "window/ViewControl.h"

#include <cstdint>
#include <utility>

#include "display/Display.h"
#include "window/ViewNames.h"

namespace host {

namespace {

/// Coordinate beside every button.
constexpr int NOWHERE = -10000;

constexpr const char* KEYS_TEXT =
    "Left/Right: other view, B: buttons, H: mirror, V: flip, R: rotate, I: invert colours, "
    "S: send position report, Home/Del: reset all, F: full screen, Q/Esc: quit";

// Coordinates are negative when a finger leaves the window.
int LowHalf(LPARAM packed) {
  return static_cast<std::int16_t>(packed & 0xFFFF);
}

int HighHalf(LPARAM packed) {
  return static_cast<std::int16_t>(packed >> 16 & 0xFFFF);
}

}  // namespace

struct ViewControl::Button {
  LPARAM code;
  void (ViewControl::*answer)();
};

struct ViewControl::Key {
  WPARAM key;
  void (ViewControl::*answer)();
};

const ViewControl::Button ViewControl::BUTTONS[] = {
    {FEROLIN_BUTTON_PREVIOUS_VIEW, &ViewControl::GoToPrevious},
    {FEROLIN_BUTTON_NEXT_VIEW, &ViewControl::GoToNext},
    {FEROLIN_BUTTON_RESET_ALL, &ViewControl::ResetAll},
    {FEROLIN_BUTTON_SEND_SMS, &ViewControl::SendSms},
    {FEROLIN_BUTTON_OPTIONS, &ViewControl::AnswerOptions},
    {FEROLIN_BUTTON_CLOSE, &ViewControl::Close},
    {FEROLIN_BUTTON_FLIP_HORIZONTALLY, &ViewControl::ToggleMirror},
    {FEROLIN_BUTTON_ROTATE_SCREEN, &ViewControl::ToggleRotation},
};

const ViewControl::Key ViewControl::KEYS[] = {
    {handheld::KEY_LEFT, &ViewControl::GoToPrevious},
    {handheld::KEY_RIGHT, &ViewControl::GoToNext},
    {'H', &ViewControl::ToggleMirror},
    {'V', &ViewControl::ToggleFlip},
    {'R', &ViewControl::ToggleRotation},
    {'I', &ViewControl::ToggleColors},
    {'B', &ViewControl::ToggleBars},
    {'S', &ViewControl::SendSms},
    {handheld::KEY_HOME, &ViewControl::ResetAll},
    {handheld::KEY_DELETE, &ViewControl::ResetAll},
    {'F', &ViewControl::ToggleFullscreen},
    {'Q', &ViewControl::Close},
    {handheld::KEY_ESCAPE, &ViewControl::Close},
};

ViewControl::ViewControl(const EngineLibrary::Functions& engine, HWND window,
                         const Options::Picture& picture, Actions actions)
    : engine(engine), window(window), actions(std::move(actions)) {
  engine.SetInvertHorz(picture.mirror.value_or(false) ? 1 : 0);
  engine.SetInvertVert(picture.flip.value_or(false) ? 1 : 0);
  engine.SetInvertOrient(picture.rotate.value_or(false) ? 1 : 0);
  engine.SetInvertColor(picture.invert.value_or(false) ? 1 : 0);
  engine.SetCurRenderWidget(
      ParseViewNumber(engine, picture.view).value_or(FEROLIN_VIEW_SPEEDOMETER));
}

void ViewControl::OnButton(LPARAM code) {
  wasButton = true;
  for (const Button& button : BUTTONS) {
    if (button.code == code) {
      (this->*button.answer)();
    }
  }
}

void ViewControl::OnMessage(const MSG& message) {
  const int x = LowHalf(message.lParam);
  const int y = HighHalf(message.lParam);
  switch (message.message) {
    case WM_LBUTTONDOWN:
      wasButton = false;
      engine.OnMouseDown(window, x, y);
      break;
    case WM_LBUTTONDBLCLK:
      OnDoubleClick(x, y);
      break;
    case WM_MOUSEMOVE:
      engine.OnMouseMove(window, x, y);
      break;
    case WM_LBUTTONUP:
      engine.OnMouseUp(window, x, y);
      break;
    case WM_KEYDOWN:
      OnKey(message.wParam);
      break;
    case WM_CLOSE:
      actions.close();
      break;
    default:
      break;
  }
}

/// Two quick taps on an arrow go on by two views; they must not hide the arrow.
void ViewControl::OnDoubleClick(int x, int y) {
  if (!wasButton) {
    engine.OnDoubleClick();
  }
  wasButton = false;
  engine.OnMouseDown(window, x, y);
}

void ViewControl::OnKey(WPARAM key) {
  for (const Key& each : KEYS) {
    if (each.key == key) {
      (this->*each.answer)();
    }
  }
}

void ViewControl::GoBy(int step) {
  const int count = engine.GetWidgetsCount();
  if (count > 0) {
    engine.SetCurRenderWidget((engine.GetCurRenderWidget() + step + count) % count);
  }
}

void ViewControl::ResetAll() {
  for (int sensor = 0; sensor < engine.GetSensorsCount(); ++sensor) {
    engine.ResetSensorValue(sensor);
  }
}

void ViewControl::SendSms() {
  if (engine.IsSMSExist() == 0) {
    actions.say("no position report is sent: there is no library for messages");
    return;
  }
  engine.SendSMS();
}

void ViewControl::ToggleColors() {
  engine.SetInvertColor(engine.GetInvertColor() == 0 ? 1 : 0);
  PresentAgain();
}

void ViewControl::ToggleMirror() {
  engine.SetInvertHorz(engine.GetInvertHorz() == 0 ? 1 : 0);
  PresentAgain();
}

void ViewControl::ToggleFlip() {
  engine.SetInvertVert(engine.GetInvertVert() == 0 ? 1 : 0);
  PresentAgain();
}

/// Does not present the last frame: it has the old shape. The next update draws the new one.
void ViewControl::ToggleRotation() {
  engine.SetInvertOrient(engine.GetInvertOrient() == 0 ? 1 : 0);
}

void ViewControl::ToggleBars() {
  engine.OnDoubleClick();
  PresentAgain();
}

/// There is no window for options: does what is wanted most on the way and names the keys for the
/// rest.
void ViewControl::AnswerOptions() {
  ToggleColors();
  actions.say(KEYS_TEXT);
}

/// Touches the window beside every button: the engine presents its last frame at every touch, so
/// that a change shows at once instead of at the next update.
void ViewControl::PresentAgain() {
  engine.OnMouseDown(window, NOWHERE, NOWHERE);
  engine.OnMouseUp(window, NOWHERE, NOWHERE);
}

Options::Picture ViewControl::GetPicture() const {
  Options::Picture picture;
  picture.view = std::to_string(engine.GetCurRenderWidget());
  picture.mirror = engine.GetInvertHorz() != 0;
  picture.flip = engine.GetInvertVert() != 0;
  picture.rotate = engine.GetInvertOrient() != 0;
  picture.invert = engine.GetInvertColor() != 0;
  return picture;
}

std::string ViewControl::GetCurrentViewName() const {
  return GetViewName(engine, engine.GetCurRenderWidget());
}

}  // namespace host
