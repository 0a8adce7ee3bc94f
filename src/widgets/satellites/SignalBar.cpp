#include "widgets/satellites/SignalBar.h"

#include <algorithm>

namespace ferolin {

namespace {

constexpr LONG STRIP_DEPTH = 70;
constexpr LONG LABEL_DEPTH = 20;
constexpr LONG SLOTS = 12;
constexpr LONG SHADOW = 3;
constexpr LONG NARROW_STEP = 19;  // columns without room for three figures
// Two lines, which overlap where figures have no ink: 8 rows of ink each, 2 rows apart, 1 row from
// the bars and from the frame's edge.
constexpr LONG LINE_DEPTH = 13;
constexpr LONG LINE_RISE = 1;
constexpr LONG LINE_STEP = 10;
constexpr int FULL_SNR = 100;

LONG LengthOf(int snr, LONG full) {
  return full * std::clamp(snr, 0, FULL_SNR) / FULL_SNR;
}

}  // namespace

SignalStrip SignalStrip::Of(SIZE frame) {
  return frame.cx > frame.cy ? SignalStrip{{frame.cx - STRIP_DEPTH, 0, frame.cx, frame.cy}, true}
                             : SignalStrip{{0, frame.cy - STRIP_DEPTH, frame.cx, frame.cy}, false};
}

/// Light falls from the upper left: shadows lie below rows and right of columns.
SignalBar::SignalBar(const SignalStrip& strip, int slot, int snr) : isRow(strip.hasRows) {
  const RECT& area = strip.rect;
  const LONG step = (isRow ? area.bottom - area.top : area.right - area.left) / SLOTS;
  const LONG begin = 1 + slot * step;
  const LONG end = begin + step - 2;
  if (isRow) {
    const LONG base = area.left + LABEL_DEPTH;
    const LONG tip = base + LengthOf(snr, area.right - base);
    label = {area.left, begin, base, end};
    bar = {base, begin, tip, end - SHADOW};
    shadow = {base, begin + SHADOW, std::max(tip - SHADOW, base), end};
  } else {
    const LONG base = area.bottom - LABEL_DEPTH;
    const LONG tip = base - LengthOf(snr, base - area.top);
    const bool hasTwoLines = step < NARROW_STEP;
    const LONG line = hasTwoLines ? base - LINE_RISE + slot % 2 * LINE_STEP : base;
    label = {begin, line, end, line + (hasTwoLines ? LINE_DEPTH : LABEL_DEPTH)};
    bar = {begin, tip, end - SHADOW, base};
    shadow = {begin + SHADOW, std::min(tip + SHADOW, base), end, base};
  }
}

POINT SignalBar::LabelCorner(SIZE text) const {
  const LONG x = isRow ? label.right - text.cx : (label.left + label.right - text.cx) / 2;
  return {std::max<LONG>(x, 0), (label.top + label.bottom - text.cy) / 2};
}

}  // namespace ferolin
