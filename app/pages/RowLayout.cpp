#include "pages/RowLayout.h"

#include <algorithm>

#include "drawing/Painter.h"
#include "pages/Session.h"

namespace app {

namespace row_parts {

bool IsWide(const Painter& painter) {
  constexpr int WIDE = 400;
  return painter.UnitsFrom(painter.GetWidth()) >= WIDE;
}

RECT GetStepButton(const Painter& painter, const RECT& row, int direction) {
  constexpr int NARROW = 200;
  constexpr int SPACE = 4;
  const int width = painter.PixelsFrom(painter.UnitsFrom(painter.GetWidth()) < NARROW ? 42 : 50);
  const int space = painter.PixelsFrom(SPACE);
  const int right = row.right - 2 * space - (direction < 0 ? width + space : 0);
  return {right - width, row.top + space, right, row.bottom - space};
}

std::vector<WideString> BreakText(Painter& painter, const WideString& text, const RECT& row) {
  const int width = row.right - row.left - 2 * painter.PixelsFrom(MARGIN);
  return painter.BreakIntoLines(text, width, TEXT);
}

}  // namespace row_parts

namespace {

bool HasTwoColumns(const Rows& rows, const Painter& painter) {
  return row_parts::IsWide(painter) && std::ranges::all_of(rows, [](const Row& row) {
           return row.kind == RowKind::READOUT && row.getLabel != nullptr;
         });
}

int HeightOf(const Row& row, const Session& session, const RECT& place, Painter& painter) {
  switch (row.kind) {
    case RowKind::GAP:
      return painter.PixelsFrom(row_parts::GAP);
    case RowKind::HEADING:
      return painter.PixelsFrom(row_parts::HEADING);
    case RowKind::READOUT: {
      const std::size_t lines =
          row_parts::BreakText(painter, row.getText(session, row.argument), place).size();
      const int more = static_cast<int>(std::max<std::size_t>(lines, 1)) - 1;
      return painter.PixelsFrom(row_parts::HEIGHT +
                                more * (row_parts::TEXT + row_parts::LINE_SPACING));
    }
    default:
      return painter.PixelsFrom(row_parts::HEIGHT);
  }
}

}  // namespace

void RowLayout::Place(const Rows& rows, const Session& session, Painter& painter) {
  const int columns = HasTwoColumns(rows, painter) ? 2 : 1;
  const int width = painter.GetWidth() / columns;
  rects.clear();
  height = 0;
  int column = 0;
  int rowHeight = 0;
  for (const Row& row : rows) {
    RECT rect = {column * width, height, column == columns - 1 ? painter.GetWidth() : width, 0};
    rowHeight = std::max(column == 0 ? 0 : rowHeight, HeightOf(row, session, rect, painter));
    rect.bottom = height + rowHeight;
    rects.push_back(rect);
    column = (column + 1) % columns;
    height += column == 0 ? rowHeight : 0;
  }
  height += column == 0 ? 0 : rowHeight;
}

int RowLayout::FindRow(POINT point) const {
  const auto found = std::ranges::find_if(rects, [&](const RECT& rect) {
    return point.x >= rect.left && point.x < rect.right && point.y >= rect.top &&
           point.y < rect.bottom;
  });
  return found == rects.end() ? -1 : static_cast<int>(found - rects.begin());
}

}  // namespace app
