#include "pages/Keypad.h"

#include <algorithm>
#include <iterator>

#include "drawing/Painter.h"
#include "pages/Header.h"
#include "pages/Session.h"

namespace app {

namespace {

constexpr WCHAR ERASE = '<';
constexpr WCHAR ACCEPT = '!';

/// A key's place on a grid of four columns and four rows.
struct Key {
  WCHAR character;
  int column;
  int row;
  int rows;  ///< how many it is high
};

constexpr Key KEYS[] = {
    {'1', 0, 0, 1}, {'2', 1, 0, 1}, {'3', 2, 0, 1},   {'4', 0, 1, 1},    {'5', 1, 1, 1},
    {'6', 2, 1, 1}, {'7', 0, 2, 1}, {'8', 1, 2, 1},   {'9', 2, 2, 1},    {'+', 0, 3, 1},
    {'0', 1, 3, 1}, {',', 2, 3, 1}, {ERASE, 3, 0, 2}, {ACCEPT, 3, 2, 2},
};
constexpr int KEY_COUNT = static_cast<int>(std::size(KEYS));
constexpr int COLUMNS = 4;
constexpr int ROWS = 4;

// In units.
constexpr int FIELD = 52;
constexpr int SMALLEST_KEY = 46;
constexpr int SPACE = 2;
constexpr int KEY_ICON = 28;
constexpr int NUMBER_TEXT = 20;
constexpr Painter::TextSize KEY_SIZE = {22, 16};

/// Enough for a dozen recipients.
constexpr std::size_t LONGEST = 200;

}  // namespace

Keypad::Keypad(Session& session) : session(session), number(session.engine.GetSmsRecipients()) {}

bool Keypad::IsSmall(const Painter& target) const {
  const int rest = target.GetHeight() - header::GetHeight(target) - target.PixelsFrom(FIELD);
  return rest < ROWS * target.PixelsFrom(SMALLEST_KEY);
}

RECT Keypad::GetFieldRect(const Painter& target) const {
  const int space = target.PixelsFrom(2 * SPACE);
  const int top = header::GetHeight(target);
  if (IsSmall(target)) {
    const RECT title = header::GetTitleRect(target, true);
    return {title.left - space, space, title.right + space, top - space};
  }
  return {2 * space, top + space, target.GetWidth() - 2 * space, top + target.PixelsFrom(FIELD)};
}

RECT Keypad::GetKeyRect(const Painter& target, int key) const {
  const int space = target.PixelsFrom(SPACE);
  const int top = header::GetHeight(target) + (IsSmall(target) ? 0 : target.PixelsFrom(FIELD));
  const int height = target.GetHeight() - top;
  const Key& each = KEYS[key];
  const auto columnAt = [&](int column) { return target.GetWidth() * column / COLUMNS; };
  const auto rowAt = [&](int row) { return top + height * row / ROWS; };
  return {columnAt(each.column) + space, rowAt(each.row) + space, columnAt(each.column + 1) - space,
          rowAt(each.row + each.rows) - space};
}

/// The whole cell counts, not only the key in it.
int Keypad::FindKey(POINT point) const {
  if (header::IsBackAt(*painter, point)) {
    return BACK;
  }
  const int space = painter->PixelsFrom(SPACE);
  for (int key = 0; key < KEY_COUNT; ++key) {
    const RECT rect = GetKeyRect(*painter, key);
    if (point.x >= rect.left - space && point.x < rect.right + space &&
        point.y >= rect.top - space && point.y < rect.bottom + space) {
      return key;
    }
  }
  return NO_KEY;
}

void Keypad::Draw(Painter& target) {
  painter = &target;
  target.SetTheme(session.isLightTheme ? LIGHT_THEME : DARK_THEME);
  target.GetShapes().FillRect({0, 0, target.GetWidth(), target.GetHeight()},
                              target.GetTheme().background);
  header::Draw(target, IsSmall(target) ? WideString() : GetWord(Word::RECIPIENTS),
               {true, pressed == BACK, false});
  DrawField(target);
  for (int key = 0; key < KEY_COUNT; ++key) {
    DrawKey(target, key);
  }
}

/// Of a long text the end is shown, where it is typed.
void Keypad::DrawField(Painter& target) const {
  const Theme& theme = target.GetTheme();
  const RECT rect = GetFieldRect(target);
  const int margin = target.PixelsFrom(3 * SPACE);
  target.GetShapes().DrawFrame(rect, target.PixelsFrom(CORNER_RADIUS), target.PixelsFrom(2),
                               theme.accent, theme.background);
  const RECT place = {rect.left + margin, rect.top, rect.right - 2 * margin, rect.bottom};
  WideStringView shown = number;
  int width = target.MeasureWidth(shown, NUMBER_TEXT);
  while (width > place.right - place.left) {
    shown.remove_prefix(1);
    width = target.MeasureWidth(shown, NUMBER_TEXT);
  }
  target.DrawText(WideString(shown), place, {NUMBER_TEXT, NUMBER_TEXT}, theme.text,
                  Painter::Align::LEFT);
  const int cursor = place.left + width + target.PixelsFrom(SPACE);
  target.GetShapes().FillRect(
      {cursor, rect.top + 2 * margin, cursor + target.PixelsFrom(2), rect.bottom - 2 * margin},
      theme.accent);
}

void Keypad::DrawKey(Painter& target, int key) const {
  const Theme& theme = target.GetTheme();
  const RECT rect = GetKeyRect(target, key);
  const WCHAR character = KEYS[key].character;
  const bool isAccept = character == ACCEPT;
  const bool isFocused = focused == key;
  const Color border = isFocused ? theme.focus : isAccept ? theme.accent : theme.buttonBorder;
  const Color fill = pressed == key ? theme.pressedButton
                     : isAccept     ? theme.accentFill
                                    : theme.button;
  target.GetShapes().DrawFrame(rect, target.PixelsFrom(CORNER_RADIUS),
                               target.PixelsFrom(isFocused ? 2 : 1), border, fill);
  if (isAccept || character == ERASE) {
    const int size = target.PixelsFrom(KEY_ICON);
    DrawIcon(target.GetShapes(), isAccept ? Icon::CHECK : Icon::ERASE,
             (rect.left + rect.right - size) / 2, (rect.top + rect.bottom - size) / 2, size,
             isAccept ? theme.knob : theme.text);
  } else {
    target.DrawText(WideString(1, character), rect, KEY_SIZE, theme.text, Painter::Align::CENTER);
  }
}

void Keypad::OnPress(POINT point) {
  focused = NO_KEY;
  pressed = FindKey(point);
}

Screen::Outcome Keypad::OnRelease(POINT point) {
  const int key = pressed;
  pressed = NO_KEY;
  return FindKey(point) == key ? Activate(key) : Outcome();
}

Screen::Outcome Keypad::Activate(int key) {
  if (key == BACK) {
    return {PageId::NONE, true};
  }
  if (key == NO_KEY) {
    return {};
  }
  const WCHAR character = KEYS[key].character;
  if (character == ACCEPT) {
    return Accept();
  }
  if (character != ERASE) {
    Append(character);
  } else if (!number.empty()) {
    number.pop_back();
  }
  return {};
}

void Keypad::Append(WCHAR character) {
  if (number.size() < LONGEST) {
    number += character;
  }
}

Screen::Outcome Keypad::Accept() {
  Session::SmsChoices choices = session.GetSmsChoices();
  choices.recipients = number;
  session.SetSmsChoices(choices);
  return {PageId::NONE, true};
}

Screen::Outcome Keypad::OnKey(WPARAM key) {
  if (key >= '0' && key <= '9') {
    Append(static_cast<WCHAR>(key));
    return {};
  }
  switch (key) {
    case VK_LEFT:
      MoveFocus(-1, 0);
      return {};
    case VK_RIGHT:
      MoveFocus(1, 0);
      return {};
    case VK_UP:
      MoveFocus(0, -1);
      return {};
    case VK_DOWN:
      MoveFocus(0, 1);
      return {};
    case VK_RETURN:
      return focused == NO_KEY ? Accept() : Activate(focused);
    case VK_BACK:
      if (!number.empty()) {
        number.pop_back();
      }
      return {};
    case VK_ESCAPE:
      return {PageId::NONE, true};
    default:
      return {};
  }
}

/// The key that covers the next cell of the grid; the first key when none has the focus.
void Keypad::MoveFocus(int columns, int rows) {
  if (focused == NO_KEY) {
    focused = 0;
    return;
  }
  const Key& from = KEYS[focused];
  const int column = from.column + columns;
  const int row = rows > 0 ? from.row + from.rows : from.row + rows;
  for (int key = 0; key < KEY_COUNT; ++key) {
    const Key& each = KEYS[key];
    if (each.column == column && row >= each.row && row < each.row + each.rows) {
      focused = key;
    }
  }
}

}  // namespace app
