#include "widgets/ButtonBar.h"

#include "widgets/BarCountdown.h"

namespace ferolin {

namespace {

constexpr int BUTTON_SIZE = 50;  // at 96 dpi
constexpr int LOGICAL_DPI = 96;

SIZE ButtonSize(HDC dc) {
  return {GetDeviceCaps(dc, LOGPIXELSX) * BUTTON_SIZE / LOGICAL_DPI,
          GetDeviceCaps(dc, LOGPIXELSY) * BUTTON_SIZE / LOGICAL_DPI};
}

SIZE ButtonSize(HWND window) {
  const HDC dc = GetWindowDC(window);
  const SIZE size = ButtonSize(dc);
  ReleaseDC(window, dc);
  return size;
}

}  // namespace

void ButtonBar::Add(const WideString& picturePath, const ButtonMessage& message) {
  buttons.push_back({message, LoadPicture(picturePath)});
}

void ButtonBar::Show() {
  visible = true;
  countdown.Restart();
}

void ButtonBar::Hide() {
  visible = false;
  countdown.End();
}

void ButtonBar::Draw(HDC dc, const RECT& client) {
  if (!visible) {
    return;
  }
  const ButtonLayout layout = {side, client, ButtonSize(dc)};
  int index = 0;
  for (const Button& button : buttons) {
    const RECT rect = layout.GetRect(index++);
    if (button.picture == nullptr) {
      continue;
    }
    if (button.pressed) {
      button.picture->Draw(dc, rect);
    } else {
      button.picture->DrawBlended(dc, rect, countdown.GetAlpha());
    }
  }
  visible = countdown.TakeOne();
}

int ButtonBar::HitTest(HWND window, int x, int y) {
  if (!visible) {
    return NO_BUTTON;
  }
  countdown.Restart();
  RECT client = {};
  GetClientRect(window, &client);
  const ButtonLayout layout = {side, client, ButtonSize(window)};
  for (int index = 0; index < static_cast<int>(buttons.size()); ++index) {
    if (layout.IsHit(index, x, y)) {
      return index;
    }
  }
  return NO_BUTTON;
}

void ButtonBar::Press(int index) {
  if (GetButton(index) != nullptr) {
    buttons[static_cast<std::size_t>(index)].pressed = true;
  }
}

const Button* ButtonBar::GetButton(int index) const {
  return index >= 0 && index < static_cast<int>(buttons.size())
             ? &buttons[static_cast<std::size_t>(index)]
             : nullptr;
}

bool ButtonBar::ReleaseButtons() {
  bool wasPressed = false;
  for (Button& button : buttons) {
    wasPressed |= button.pressed;
    button.pressed = false;
  }
  return wasPressed;
}

}  // namespace ferolin
