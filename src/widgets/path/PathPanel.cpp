#include "widgets/path/PathPanel.h"

#include <algorithm>
#include <string>

#include "base/CodePage.h"
#include "render/Canvas.h"
#include "render/TextStyle.h"

namespace ferolin {

namespace {

/// Nearly as wide as the longest values: an elapsed time with days and hours, a distance of
/// thousands of kilometres.
constexpr const WCHAR* WIDEST_VALUE = TEXT("OOOOOOOOO");
constexpr int COLUMN_PADDING = 24;
constexpr int INSET = 2;
constexpr int LARGE_INSET = 12;  // where there is room for large figures
constexpr int GAP = 3;
constexpr int LABEL_GAP = 8;

/// A column takes at most a third of a landscape frame's width.
constexpr int LARGEST_PART = 3;

struct Text {
  const char* label;
  std::string PathReadouts::*value;
};

/// In the order of PathPanel::Item.
constexpr Text TEXTS[] = {
    {"Speed:", &PathReadouts::speed},       {"Current time:", &PathReadouts::currentTime},
    {"Elapsed:", &PathReadouts::elapsed},   {"Avg. speed:", &PathReadouts::averageSpeed},
    {"Distance:", &PathReadouts::distance},
};

int ColumnWidth(Canvas& canvas, const PathPanel::Ink& ink) {
  return canvas.MeasureText(ink.style.GetFont(canvas), WIDEST_VALUE).cx + COLUMN_PADDING;
}

/// Where a portrait frame has no room for two values beside each other, values are as small as
/// their labels, and the speed as values are elsewhere.
PathPanel::Inks Fitting(Canvas& canvas, const PathPanel::Inks& inks) {
  const RECT frame = canvas.GetFrameRect();
  if (frame.right > frame.bottom || 2 * ColumnWidth(canvas, inks.value) <= frame.right) {
    return inks;
  }
  return {inks.label, {inks.label.style, inks.value.color}, {inks.value.style, inks.speed.color}};
}

}  // namespace

PathPanel::PathPanel(Canvas& target, const Inks& theInks)
    : canvas(target), inks(Fitting(target, theInks)) {
  const RECT frame = canvas.GetFrameRect();
  if (frame.right > frame.bottom) {
    LayOutColumn({frame.right, frame.bottom});
  } else {
    LayOutRows({frame.right, frame.bottom});
  }
}

int PathPanel::HeightOf(const Ink& ink) const {
  return canvas.MeasureText(ink.style.GetFont(canvas), WIDEST_VALUE).cy;
}

const PathPanel::Ink& PathPanel::InkOf(Item item) const {
  return item == SPEED && isSpeedLarge ? inks.speed : inks.value;
}

/// Puts the value below its label.
void PathPanel::PlaceItem(Item item, int left, int top) {
  places[item] = {{left, top}, {left, top + HeightOf(inks.label)}};
}

/// Items stand one below the other, evenly over the whole height. On small frames the speed is no
/// larger than the other values, so that texts take a third of the width at most.
void PathPanel::LayOutColumn(SIZE frame) {
  isSpeedLarge = ColumnWidth(canvas, inks.speed) <= frame.cx / LARGEST_PART;
  const int left = frame.cx - ColumnWidth(canvas, isSpeedLarge ? inks.speed : inks.value);
  int height = 0;
  for (const Item item : ITEMS) {
    height += ItemHeight(item);
  }
  const int gap = std::max<int>(0, (frame.cy - height) / (static_cast<int>(ITEM_COUNT) + 1));
  const int textLeft = left + (isSpeedLarge ? LARGE_INSET : INSET);
  int top = gap;
  for (const Item item : ITEMS) {
    PlaceItem(item, textLeft, top);
    top += ItemHeight(item) + gap;
  }
  rest = {0, 0, left, frame.cy};
}

/// Items stand in two rows of two. The speed stands beside them or, in narrow frames, in a line of
/// its own above them.
void PathPanel::LayOutRows(SIZE frame) {
  const int gridHeight = 2 * (ItemHeight(ELAPSED) + GAP);
  const int gridTop = frame.cy - gridHeight;
  const int speedWidth = ColumnWidth(canvas, inks.speed);
  if (speedWidth + 2 * ColumnWidth(canvas, inks.value) <= frame.cx) {
    PlaceItem(SPEED, LARGE_INSET, gridTop + (gridHeight - GAP - ItemHeight(SPEED)) / 2);
    LayOutGrid(speedWidth + LARGE_INSET, (frame.cx - speedWidth) / 2, gridTop);
    rest = {0, 0, frame.cx, gridTop - GAP};
    return;
  }
  const int speedTop = gridTop - GAP - HeightOf(inks.speed);
  const int labelWidth =
      canvas.MeasureText(inks.label.style.GetFont(canvas), Widen(TEXTS[SPEED].label).c_str()).cx;
  places[SPEED] = {
      {INSET, speedTop + (HeightOf(inks.speed) - HeightOf(inks.label)) / 2},
      {INSET + labelWidth + LABEL_GAP, speedTop},
  };
  LayOutGrid(INSET, frame.cx / 2, gridTop);
  rest = {0, 0, frame.cx, speedTop - GAP};
}

void PathPanel::LayOutGrid(int left, int columnWidth, int top) {
  const int rowHeight = ItemHeight(ELAPSED) + GAP;
  PlaceItem(CURRENT_TIME, left, top);
  PlaceItem(ELAPSED, left + columnWidth, top);
  PlaceItem(AVERAGE_SPEED, left, top + rowHeight);
  PlaceItem(DISTANCE, left + columnWidth, top + rowHeight);
}

void PathPanel::Draw(const PathReadouts& readouts) const {
  for (const Item item : ITEMS) {
    DrawText(inks.label, TEXTS[item].label, places[item].label);
    DrawText(InkOf(item), (readouts.*TEXTS[item].value).c_str(), places[item].value);
  }
}

void PathPanel::DrawText(const Ink& ink, const char* text, POINT corner) const {
  canvas.DrawText(ink.style.GetFont(canvas), Widen(text).c_str(), corner.x, corner.y, ink.color);
}

}  // namespace ferolin
