#include "widgets/ButtonLayout.h"

#include <algorithm>

namespace ferolin {

namespace {

/// Place of a button in the lines along an edge.
struct Place {
  int line;    ///< 0 next to the edge
  int offset;  ///< from the line's start to the button's
};

Place PlaceOf(int index, int length, int size) {
  const int perLine = size > 0 ? std::max(1, length / size) : 1;
  const int step = length / perLine;
  return {index / perLine, index % perLine * step + (step - size) / 2};
}

/// Distance of a line from the edge: one pixel, and one more between lines.
int DepthOf(int line, int size) {
  return 1 + line * (size + 1);
}

}  // namespace

RECT ButtonLayout::GetRect(int index) const {
  const int width = button.cx;
  const int height = button.cy;
  const bool isRow = side == BarSide::TOP || side == BarSide::BOTTOM;
  const Place place = isRow ? PlaceOf(index, client.right - client.left, width)
                            : PlaceOf(index, client.bottom - client.top, height);
  const int depth = DepthOf(place.line, isRow ? height : width);
  int left = 0;
  int top = 0;
  switch (side) {
    case BarSide::TOP:
      left = client.left + place.offset;
      top = client.top + depth;
      break;
    case BarSide::BOTTOM:
      left = client.right - place.offset - width;
      top = client.bottom - depth - height;
      break;
    case BarSide::LEFT:
      left = client.left + depth;
      top = client.bottom - place.offset - height;
      break;
    case BarSide::RIGHT:
      left = client.right - depth - width;
      top = client.bottom - place.offset - height;
      break;
  }
  return {left, top, left + width, top + height};
}

bool ButtonLayout::IsHit(int index, int x, int y) const {
  const RECT rect = GetRect(index);
  return x >= rect.left && x <= rect.right && y >= rect.top && y <= rect.bottom;
}

}  // namespace ferolin
