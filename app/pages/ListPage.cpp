#include "pages/ListPage.h"

#include <algorithm>

#include "drawing/Painter.h"
#include "pages/Header.h"
#include "pages/Pages.h"
#include "pages/Session.h"

namespace app {

namespace {

constexpr DWORD FIRST_REPEAT_MS = 450;
constexpr DWORD NEXT_REPEAT_MS = 100;
constexpr int DRAG_THRESHOLD = 8;  // units

}  // namespace

ListPage::ListPage(PageId page, Session& session)
    : page(page), session(session), rows(MakeRows(page, session)) {}

bool ListPage::IsLive() const {
  return page == PageId::READOUTS || page == PageId::RESET || page == PageId::WAITING;
}

void ListPage::Draw(Painter& newPainter) {
  painter = &newPainter;
  painter->SetTheme(session.isLightTheme ? LIGHT_THEME : DARK_THEME);
  layout.Place(rows, session, *painter);
  scroll.SetFarthest(layout.GetHeight() - (painter->GetHeight() - header::GetHeight(*painter)));
  painter->GetShapes().FillRect({0, 0, painter->GetWidth(), painter->GetHeight()},
                                painter->GetTheme().background);
  DrawRows(*painter);
  DrawScrollBar(*painter);
  header::Draw(*painter, GetWord(GetTitle(page)),
               {HasBack(), pressed.row == BACK, focused.row == BACK});
}

RECT ListPage::GetPlace(int row) const {
  const int top = header::GetHeight(*painter) - scroll.GetOffset();
  const RECT& rect = layout.GetRect(row);
  return {rect.left, rect.top + top, rect.right, rect.bottom + top};
}

void ListPage::DrawRows(Painter& target) {
  RowPainter rowPainter(target, session);
  for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
    const RECT place = GetPlace(i);
    if (place.bottom <= header::GetHeight(target) || place.top >= target.GetHeight()) {
      continue;
    }
    RowPainter::State state;
    state.isPressed = pressed.row == i;
    state.isFocused = focused.row == i;
    state.part = state.isPressed ? pressed.part : focused.part;
    state.isArmed = armedRow == i;
    rowPainter.Draw(GetRow(i), place, state);
  }
}

void ListPage::DrawScrollBar(Painter& target) {
  constexpr int WIDTH = 3;
  if (scroll.GetFarthest() == 0) {
    return;
  }
  const int top = header::GetHeight(target);
  const int shown = target.GetHeight() - top;
  const int length = shown * shown / layout.GetHeight();
  const int start = top + (shown - length) * scroll.GetOffset() / scroll.GetFarthest();
  target.GetShapes().FillRect(
      {target.GetWidth() - target.PixelsFrom(WIDTH), start, target.GetWidth(), start + length},
      target.GetTheme().buttonBorder);
}

bool ListPage::CanPress(const Target& target) const {
  if (target.row == BACK) {
    return HasBack();
  }
  if (target.row < 0) {
    return false;
  }
  const Row& row = GetRow(target.row);
  const bool isEnabled = row.isEnabled == nullptr || row.isEnabled(session, row.argument) != 0;
  if (row.kind == RowKind::STEPPER) {
    return isEnabled && target.part != RowPart::WHOLE;
  }
  return isEnabled && (row.set != nullptr || row.page != PageId::NONE);
}

ListPage::Target ListPage::FindTarget(POINT point) const {
  const int top = header::GetHeight(*painter);
  if (point.y < top) {
    return {header::IsBackAt(*painter, point) ? BACK : NOWHERE, RowPart::WHOLE};
  }
  const int row = layout.FindRow({point.x, point.y - top + scroll.GetOffset()});
  if (row < 0) {
    return {};
  }
  if (GetRow(row).kind != RowKind::STEPPER) {
    return {row, RowPart::WHOLE};
  }
  // The buttons reach to the edges of their row.
  const RECT place = GetPlace(row);
  if (point.x >= row_parts::GetStepButton(*painter, place, 1).left) {
    return {row, RowPart::RAISE};
  }
  const bool isLower = point.x >= row_parts::GetStepButton(*painter, place, -1).left;
  return {row, isLower ? RowPart::LOWER : RowPart::WHOLE};
}

void ListPage::OnPress(POINT point) {
  scroll.Press(point.y);
  focused = {};
  const Target target = FindTarget(point);
  pressed = CanPress(target) ? target : Target();
  if (pressed.row != armedRow) {
    armedRow = NOWHERE;
  }
  repeatMs.reset();
  if (pressed.part != RowPart::WHOLE) {
    repeatMs = GetTickCount() + FIRST_REPEAT_MS;
    Activate(pressed);
  }
}

void ListPage::OnDrag(POINT point) {
  if (pressed.part == RowPart::WHOLE && scroll.Drag(point.y, painter->PixelsFrom(DRAG_THRESHOLD))) {
    pressed = {};
  }
}

/// Buttons of a stepper have acted when they were pressed.
Screen::Outcome ListPage::OnRelease(POINT point) {
  const Target released = FindTarget(point);
  const Target target = pressed;
  pressed = {};
  repeatMs.reset();
  scroll.Release();
  return target == released && target.part == RowPart::WHOLE ? Activate(target) : Outcome();
}

bool ListPage::IsMoving() const {
  return repeatMs.has_value() || scroll.IsFlung();
}

void ListPage::OnStep() {
  if (scroll.IsFlung()) {
    scroll.Step(STEP_MS);
  }
  // The difference is negative, seen as a signed number, until the time has come.
  if (repeatMs && static_cast<std::int32_t>(GetTickCount() - *repeatMs) >= 0) {
    repeatMs = GetTickCount() + NEXT_REPEAT_MS;
    Activate(pressed);
  }
}

Screen::Outcome ListPage::Activate(const Target& target) {
  if (!CanPress(target)) {
    return {};
  }
  if (target.row == BACK) {
    return {PageId::NONE, true};
  }
  return ActivateRow(GetRow(target.row), target.row, target.part);
}

Screen::Outcome ListPage::ActivateRow(const Row& row, int index, RowPart part) {
  if (row.kind == RowKind::LINK) {
    return {row.page, false};
  }
  if (row.asksAgain && armedRow != index) {
    armedRow = index;
    return {};
  }
  armedRow = NOWHERE;
  const bool isOn = row.get != nullptr && row.get(session, row.argument) != 0;
  const int value = row.kind == RowKind::STEPPER  ? static_cast<int>(part)
                    : row.kind == RowKind::SWITCH ? (isOn ? 0 : 1)
                                                  : 1;
  row.set(session, row.argument, value);
  return {};
}

Screen::Outcome ListPage::OnKey(WPARAM key) {
  switch (key) {
    case VK_UP:
      MoveFocus(-1);
      return {};
    case VK_DOWN:
      MoveFocus(1);
      return {};
    case VK_RETURN:
      return Activate(focused);
    case VK_LEFT:
    case VK_RIGHT:
      if (focused.row >= 0 && GetRow(focused.row).kind == RowKind::STEPPER) {
        focused.part = key == VK_LEFT ? RowPart::LOWER : RowPart::RAISE;
        return Activate(focused);
      }
      return {};
    case VK_ESCAPE:
    case VK_BACK:
      return {PageId::NONE, HasBack()};
    default:
      return {};
  }
}

/// Goes on to the next row that can be pressed. A page of read-outs alone is scrolled.
void ListPage::MoveFocus(int direction) {
  armedRow = NOWHERE;
  const int count = static_cast<int>(rows.size());
  const int start = focused.row == NOWHERE ? (direction > 0 ? BACK : count) : focused.row;
  for (int row = start + direction; row >= BACK && row < count; row += direction) {
    const bool isStepper = row >= 0 && GetRow(row).kind == RowKind::STEPPER;
    const Target target = {row, isStepper ? RowPart::RAISE : RowPart::WHOLE};
    if (CanPress(target)) {
      focused = target;
      ShowFocus();
      return;
    }
  }
  scroll.MoveTo(scroll.GetOffset() + direction * painter->PixelsFrom(row_parts::HEIGHT));
}

/// Scrolls so that the row with the focus is wholly to be seen.
void ListPage::ShowFocus() {
  if (focused.row < 0) {
    return;
  }
  const RECT& rect = layout.GetRect(focused.row);
  const int shown = painter->GetHeight() - header::GetHeight(*painter);
  const int lowest = rect.bottom - shown;
  scroll.MoveTo(std::clamp<int>(scroll.GetOffset(), lowest, rect.top));
}

}  // namespace app
