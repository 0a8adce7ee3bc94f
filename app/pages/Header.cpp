#include "pages/Header.h"

#include "drawing/Painter.h"

namespace app::header {

namespace {

// In units.
constexpr int HEIGHT = 48;
constexpr int MARGIN = 4;
constexpr int ICON = 24;
constexpr Painter::TextSize TITLE_SIZE = {18, 11};

RECT BackRect(const Painter& painter) {
  const int margin = painter.PixelsFrom(MARGIN);
  const int end = painter.PixelsFrom(HEIGHT) - margin;
  return {margin, margin, end, end};
}

}  // namespace

int GetHeight(const Painter& painter) {
  return painter.PixelsFrom(HEIGHT);
}

RECT GetTitleRect(const Painter& painter, bool hasBack) {
  const int margin = painter.PixelsFrom(2 * MARGIN);
  return {hasBack ? GetHeight(painter) + margin : margin, 0, painter.GetWidth() - margin,
          GetHeight(painter) - 1};
}

void Draw(Painter& painter, const ferolin::WideString& title, const State& state) {
  const Theme& theme = painter.GetTheme();
  const int height = GetHeight(painter);
  Shapes& shapes = painter.GetShapes();
  shapes.FillRect({0, 0, painter.GetWidth(), height}, theme.header);
  shapes.FillRect({0, height - 1, painter.GetWidth(), height}, theme.headerLine);
  if (state.hasBack) {
    const RECT rect = BackRect(painter);
    shapes.DrawFrame(rect, painter.PixelsFrom(CORNER_RADIUS),
                     painter.PixelsFrom(state.isFocused ? 2 : 1),
                     state.isFocused ? theme.focus : theme.buttonBorder,
                     state.isPressed ? theme.pressedButton : theme.button);
    const int size = painter.PixelsFrom(ICON);
    DrawIcon(shapes, Icon::BACK, (rect.left + rect.right - size) / 2,
             (rect.top + rect.bottom - size) / 2, size, theme.text);
  }
  painter.DrawLabel(title, GetTitleRect(painter, state.hasBack), TITLE_SIZE, theme.text);
}

/// The whole corner counts: the edge of a screen is hard to hit.
bool IsBackAt(const Painter& painter, POINT point) {
  const int height = GetHeight(painter);
  return point.x < height && point.y < height;
}

}  // namespace app::header
