#include "widgets/chart/MinuteMarks.h"

#include <algorithm>
#include <limits>

#include "render/Canvas.h"

namespace ferolin {

namespace {

constexpr LONG GAP = 5;

LONG MeasureCharacter(Canvas& canvas, HFONT font, WCHAR character) {
  const WCHAR text[] = {character, 0};
  return canvas.MeasureText(font, text).cx;
}

}  // namespace

void MinuteMarks::Begin(Canvas& canvas, HFONT font, LONG left, LONG right) {
  MeasureCharacters(canvas, font);
  leftLimit = left;
  rightLimit = right;
  nextRight = std::numeric_limits<LONG>::max();
  lines.Clear();
  labels.Clear();
}

/// Zoomed out far there are many more minutes than labels. Measuring the text of each would take
/// most of the frame's time.
void MinuteMarks::MeasureCharacters(Canvas& canvas, HFONT font) {
  if (font == measuredFont) {
    return;
  }
  measuredFont = font;
  for (std::size_t digit = 0; digit < digitWidths.size(); ++digit) {
    digitWidths[digit] = MeasureCharacter(canvas, font, static_cast<WCHAR>('0' + digit));
  }
  colonWidth = MeasureCharacter(canvas, font, static_cast<WCHAR>(':'));
}

/// A label reaches at least to its line, so a column from `nextRight` on has no room for one.
void MinuteMarks::Add(LONG x, std::span<const TrackPoint> points) {
  bool hasLine = false;
  for (std::size_t left = points.size(); left > 0; --left) {
    const TrackPoint& point = points[left - 1];
    if (point.time.wSecond != 0) {
      continue;
    }
    if (!hasLine) {
      hasLine = lines.Add(x);
    }
    if (x >= nextRight) {
      return;
    }
    AddLabel(x, point.time);
  }
}

void MinuteMarks::AddLabel(LONG x, const SYSTEMTIME& time) {
  const std::array<unsigned, 4> digits = {time.wHour / 10U % 10, time.wHour % 10U,
                                          time.wMinute / 10U % 10, time.wMinute % 10U};
  std::array<WCHAR, 4> figures;
  LONG width = colonWidth;
  for (std::size_t index = 0; index < digits.size(); ++index) {
    figures[index] = static_cast<WCHAR>('0' + digits[index]);
    width += digitWidths[digits[index]];
  }
  const LONG left = std::max(std::min(x - width / 2, rightLimit - width), leftLimit);
  if (left + width < nextRight &&
      labels.Add({left, {figures[0], figures[1], ':', figures[2], figures[3], 0}})) {
    nextRight = left - GAP;
  }
}

}  // namespace ferolin
