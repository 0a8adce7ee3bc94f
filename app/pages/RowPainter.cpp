#include "pages/RowPainter.h"

#include "drawing/Painter.h"
#include "pages/RowLayout.h"
#include "pages/Session.h"

namespace app {

namespace {

using Align = Painter::Align;

constexpr Painter::TextSize LABEL_SIZE = {row_parts::TEXT, row_parts::TEXT_SMALLEST};
constexpr Painter::TextSize CAPTION_SIZE = {row_parts::CAPTION, row_parts::CAPTION_SMALLEST};
/// End of the caption over a value, and of the label over a caption, in units from the row's top.
constexpr int CAPTION_END = 20;
constexpr int LABEL_END = 28;
constexpr int BOTTOM_MARGIN = 4;
constexpr int MARK = 22;

bool IsEnabled(const Row& row, const Session& session) {
  return row.isEnabled == nullptr || row.isEnabled(session, row.argument) != 0;
}

bool IsOn(const Row& row, const Session& session) {
  return row.get != nullptr && row.get(session, row.argument) != 0;
}

}  // namespace

void RowPainter::Draw(const Row& row, const RECT& rect, const State& state) {
  const Theme& theme = painter.GetTheme();
  Shapes& shapes = painter.GetShapes();
  const bool isPlain = row.kind == RowKind::GAP || row.kind == RowKind::HEADING;
  if (!isPlain) {
    const bool isPressed = state.isPressed && state.part == RowPart::WHOLE;
    // The lines that stay free part the row from the next one and from the other column.
    const int right = rect.right < painter.GetWidth() ? rect.right - 1 : rect.right;
    shapes.FillRect({rect.left, rect.top, right, rect.bottom - 1},
                    isPressed ? theme.pressedRow : theme.row);
  }
  const bool isEnabled = IsEnabled(row, session);
  const int margin = painter.PixelsFrom(row_parts::MARGIN);
  int right = rect.right - margin;
  switch (row.kind) {
    case RowKind::GAP:
      return;
    case RowKind::READOUT:
      DrawReadout(row, rect);
      break;
    case RowKind::SWITCH:
      right -= painter.PixelsFrom(row_parts::SWITCH_WIDTH);
      DrawSwitch({right, rect.top, rect.right - margin, rect.bottom}, IsOn(row, session),
                 isEnabled);
      break;
    case RowKind::STEPPER:
      right = row_parts::GetStepButton(painter, rect, -1).left;
      DrawStepButtons(rect, state);
      break;
    case RowKind::LINK:
    case RowKind::CHOICE: {
      const int size = painter.PixelsFrom(MARK);
      const bool isLink = row.kind == RowKind::LINK;
      right -= size;
      if (isLink || IsOn(row, session)) {
        DrawIcon(shapes, isLink ? Icon::FORWARD : Icon::CHECK, right,
                 (rect.top + rect.bottom - size) / 2, size,
                 !isEnabled ? theme.disabledText
                 : isLink   ? theme.faintText
                            : theme.accent);
      }
      break;
    }
    default:
      break;
  }
  if (row.kind != RowKind::READOUT) {
    DrawTexts(row, rect, state, right, isEnabled);
  }
  if (state.isFocused && state.part == RowPart::WHOLE) {
    const int width = painter.PixelsFrom(2);
    shapes.FillRect({rect.left, rect.top, rect.right, rect.top + width}, theme.focus);
    shapes.FillRect({rect.left, rect.bottom - 1 - width, rect.right, rect.bottom - 1}, theme.focus);
    shapes.FillRect({rect.left, rect.top, rect.left + width, rect.bottom - 1}, theme.focus);
    shapes.FillRect({rect.right - width, rect.top, rect.right, rect.bottom - 1}, theme.focus);
  }
}

void RowPainter::DrawSwitch(const RECT& rect, bool isOn, bool isEnabled) {
  constexpr int INSET = 3;
  const Theme& theme = painter.GetTheme();
  const int height = painter.PixelsFrom(row_parts::SWITCH_HEIGHT);
  const int inset = painter.PixelsFrom(INSET);
  const int top = (rect.top + rect.bottom - height) / 2;
  painter.GetShapes().DrawFrame({rect.left, top, rect.right, top + height}, height / 2,
                                painter.PixelsFrom(2) - painter.PixelsFrom(1) / 2,
                                isOn && isEnabled ? theme.accent : theme.buttonBorder,
                                isOn && isEnabled ? theme.accentFill : theme.button);
  const int knob = height - 2 * inset;
  const int left = isOn ? rect.right - inset - knob : rect.left + inset;
  painter.GetShapes().FillRoundRect({left, top + inset, left + knob, top + inset + knob}, knob / 2,
                                    isEnabled ? theme.knob : theme.disabledText);
}

void RowPainter::DrawStepButtons(const RECT& rect, const State& state) {
  const Theme& theme = painter.GetTheme();
  Shapes& shapes = painter.GetShapes();
  for (const RowPart part : {RowPart::LOWER, RowPart::RAISE}) {
    const RECT button = row_parts::GetStepButton(painter, rect, static_cast<int>(part));
    const bool isMeant = state.part == part;
    const bool isFocused = state.isFocused && isMeant;
    shapes.DrawFrame(button, painter.PixelsFrom(CORNER_RADIUS),
                     painter.PixelsFrom(isFocused ? 2 : 1),
                     isFocused ? theme.focus : theme.buttonBorder,
                     state.isPressed && isMeant ? theme.pressedButton : theme.button);
    const int size = painter.PixelsFrom(MARK);
    DrawIcon(shapes, part == RowPart::LOWER ? Icon::MINUS : Icon::PLUS,
             (button.left + button.right - size) / 2, (button.top + button.bottom - size) / 2, size,
             theme.text);
  }
}

void RowPainter::DrawTexts(const Row& row, const RECT& rect, const State& state, int right,
                           bool isEnabled) {
  const Theme& theme = painter.GetTheme();
  const int margin = painter.PixelsFrom(row_parts::MARGIN);
  const bool isHeading = row.kind == RowKind::HEADING;
  int left = rect.left + margin;
  if (row.icon != Icon::NONE) {
    const int size = painter.PixelsFrom(row_parts::ICON);
    DrawIcon(painter.GetShapes(), row.icon, left, (rect.top + rect.bottom - size) / 2, size,
             isEnabled ? theme.faintText : theme.disabledText);
    left += size + margin;
  }
  const WideString label = GetLabel(row);
  const WideString value = GetValue(row, state);
  const bool isCommand = row.kind == RowKind::ACTION && row.getLabel == nullptr;
  const Color labelColor = !isEnabled  ? theme.disabledText
                           : isHeading ? theme.faintText
                           : isCommand ? theme.accent
                                       : theme.text;
  const Color valueColor = !isEnabled      ? theme.disabledText
                           : state.isArmed ? theme.warning
                                           : theme.accent;
  const RECT whole = {left, rect.top, right - margin / 2, rect.bottom - 1};
  const int bottom = rect.bottom - painter.PixelsFrom(BOTTOM_MARGIN);
  if (value.empty()) {
    painter.DrawLabel(label, whole, LABEL_SIZE, labelColor);
  } else if (row.kind == RowKind::STEPPER) {
    const int middle = rect.top + painter.PixelsFrom(CAPTION_END);
    painter.DrawText(label, {left, rect.top, whole.right, middle}, CAPTION_SIZE, theme.faintText,
                     Align::LEFT);
    painter.DrawText(value, {left, middle, whole.right, bottom}, LABEL_SIZE, theme.text,
                     Align::LEFT);
  } else if (row_parts::IsWide(painter)) {
    const int middle = (left + whole.right) / 2;
    painter.DrawText(label, {left, whole.top, middle, whole.bottom}, LABEL_SIZE, labelColor,
                     Align::LEFT);
    painter.DrawText(value, {middle + margin, whole.top, whole.right, whole.bottom}, LABEL_SIZE,
                     valueColor, Align::RIGHT);
  } else {
    const int middle = rect.top + painter.PixelsFrom(LABEL_END);
    painter.DrawText(label, {left, rect.top + painter.PixelsFrom(2), whole.right, middle},
                     LABEL_SIZE, labelColor, Align::LEFT);
    painter.DrawText(value, {left, middle, whole.right, bottom}, CAPTION_SIZE, valueColor,
                     Align::LEFT);
  }
}

void RowPainter::DrawReadout(const Row& row, const RECT& rect) {
  const Theme& theme = painter.GetTheme();
  const int margin = painter.PixelsFrom(row_parts::MARGIN);
  const int left = rect.left + margin;
  const int right = rect.right - margin;
  int top = rect.top + painter.PixelsFrom(CAPTION_END);
  painter.DrawText(GetLabel(row), {left, rect.top, right, top}, CAPTION_SIZE, theme.faintText,
                   Align::LEFT);
  const int lineHeight = painter.PixelsFrom(row_parts::TEXT + row_parts::LINE_SPACING);
  const WideString text = row.getText(session, row.argument);
  for (const WideString& line : row_parts::BreakText(painter, text, rect)) {
    if (top + lineHeight > 0 && top < painter.GetHeight()) {
      painter.DrawText(line, {left, top, right, top + lineHeight}, LABEL_SIZE, theme.text,
                       Align::LEFT);
    }
    top += lineHeight;
  }
}

WideString RowPainter::GetLabel(const Row& row) const {
  return row.getLabel != nullptr ? row.getLabel(session, row.argument) : GetWord(row.label);
}

WideString RowPainter::GetValue(const Row& row, const State& state) const {
  if (state.isArmed) {
    return GetWord(Word::TAP_AGAIN);
  }
  return row.getText != nullptr ? row.getText(session, row.argument) : WideString();
}

}  // namespace app
