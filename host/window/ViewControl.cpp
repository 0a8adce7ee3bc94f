#include "window/ViewControl.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>

#include "Display.h"
#include "base/HostError.h"
#include "handheld.h"

namespace host {

namespace {

/// Far off every button.
constexpr int NOWHERE = -10000;

constexpr const char* KEYS_TEXT =
    "Left/Right: other view, B: buttons, H: mirror, V: flip, R: rotate, I: invert colours, "
    "S: send position report, Home/Del: reset all, F: full screen, Q/Esc: quit";

std::string NameOf(const EngineLibrary::Functions& engine, int view) {
  std::array<char, 256> name = {};
  engine.GetWidgetName(view, name.data(), static_cast<int>(name.size()));
  return handheld::Utf8FromAnsi(name.data());
}

/// Nothing when it is not the number of a view.
std::optional<int> ParseView(const EngineLibrary::Functions& engine, const std::string& text) {
  int number = -1;
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  const bool isNumber = parsed.ec == std::errc() && parsed.ptr == end;
  return isNumber && number >= 0 && number < engine.GetWidgetsCount() ? std::optional(number)
                                                                      : std::nullopt;
}

/// Coordinates may be negative, when a finger leaves the window.
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
    {1, &ViewControl::GoToPrevious}, {2, &ViewControl::GoToNext},       {3, &ViewControl::ResetAll},
    {4, &ViewControl::SendSms},      {5, &ViewControl::ToggleColors},   {6, &ViewControl::Close},
    {7, &ViewControl::ToggleMirror}, {8, &ViewControl::ToggleRotation},
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

int FindView(const EngineLibrary::Functions& engine, const std::string& nameOrNumber) {
  if (const std::optional<int> number = ParseView(engine, nameOrNumber)) {
    return *number;
  }
  std::string names;
  for (int view = 0; view < engine.GetWidgetsCount(); ++view) {
    const std::string name = NameOf(engine, view);
    if (strcasecmp(name.c_str(), nameOrNumber.c_str()) == 0) {
      return view;
    }
    names += (names.empty() ? "" : ", ") + name + " (" + std::to_string(view) + ")";
  }
  throw UsageError("--view: there is no \"" + nameOrNumber + "\" among " + names);
}

ViewControl::ViewControl(const EngineLibrary::Functions& engineToUse, HWND windowToControl,
                         const Options::Picture& choices, Actions actionsToTake)
    : engine(engineToUse), window(windowToControl), actions(std::move(actionsToTake)) {
  engine.SetInvertHorz(choices.mirror.value_or(false) ? 1 : 0);
  engine.SetInvertVert(choices.flip.value_or(false) ? 1 : 0);
  engine.SetInvertOrient(choices.rotate.value_or(false) ? 1 : 0);
  engine.SetInvertColor(choices.invert.value_or(false) ? 1 : 0);
  engine.SetCurRenderWidget(ParseView(engine, choices.view).value_or(0));
}

void ViewControl::OnButton(LPARAM code) {
  wasButton = true;
  for (const Button& button : BUTTONS) {
    if (button.code == code) {
      (this->*button.answer)();
    }
  }
  // Options have no window of their own: the button does what is wanted most on the way, and says
  // how to come by the rest.
  constexpr LPARAM OPTIONS = 5;
  if (code == OPTIONS) {
    ShowKeys();
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

/// Who taps an arrow twice wants to go on by two views, not to hide the arrow.
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

/// The frame has another shape then: the next update draws it.
void ViewControl::ToggleRotation() {
  engine.SetInvertOrient(engine.GetInvertOrient() == 0 ? 1 : 0);
}

void ViewControl::ToggleBars() {
  engine.OnDoubleClick();
  PresentAgain();
}

void ViewControl::ShowKeys() {
  actions.say(KEYS_TEXT);
}

/// The engine shows its last frame anew at every touch, so that changes need not wait for the next
/// update.
void ViewControl::PresentAgain() {
  engine.OnMouseDown(window, NOWHERE, NOWHERE);
  engine.OnMouseUp(window, NOWHERE, NOWHERE);
}

Options::Picture ViewControl::GetChoices() const {
  Options::Picture choices;
  choices.view = std::to_string(engine.GetCurRenderWidget());
  choices.mirror = engine.GetInvertHorz() != 0;
  choices.flip = engine.GetInvertVert() != 0;
  choices.rotate = engine.GetInvertOrient() != 0;
  choices.invert = engine.GetInvertColor() != 0;
  return choices;
}

std::string ViewControl::GetViewName() const {
  return NameOf(engine, engine.GetCurRenderWidget());
}

}  // namespace host
