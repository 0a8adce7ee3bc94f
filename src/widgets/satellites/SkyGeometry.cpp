#include "widgets/satellites/SkyGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace ferolin {

namespace {

constexpr int CIRCLE_MARGIN = 10;
constexpr int LETTER_ROOM = 8;  // half of a compass letter, and a gap
constexpr int LETTER_RISE = 5;  // from the centre up to the tops of E and W
constexpr int LABEL_GAP = 2;
constexpr int ZENITH = 90;
constexpr double RADIANS = 0.017453289031982424;
constexpr double FARTHEST = 30000;  // largest coordinate that is drawn at

LONG CutToPixel(double place) {
  return static_cast<LONG>(std::clamp(place, -FARTHEST, FARTHEST));
}

}  // namespace

SkyGeometry::SkyGeometry(const RECT& area)
    : area(area),
      centerX((area.left + area.right) / 2),
      centerY((area.top + area.bottom) / 2),
      radius(std::min((area.right - area.left) / 2, (area.bottom - area.top) / 2) - CIRCLE_MARGIN) {
}

POINT SkyGeometry::PointAt(int elevation, int azimuth) const {
  const std::int64_t distance = (std::int64_t{ZENITH} - elevation) * radius / ZENITH;
  const double angle = static_cast<double>(std::int64_t{ZENITH} - azimuth) * RADIANS;
  return {CutToPixel(centerX + static_cast<double>(distance) * std::cos(angle)),
          CutToPixel(centerY - static_cast<double>(distance) * std::sin(angle))};
}

POINT SkyGeometry::LabelCorner(POINT dot, SIZE text) const {
  constexpr int BESIDE = DOT_RADIUS + LABEL_GAP;
  POINT corner = {dot.x < centerX ? dot.x - BESIDE - text.cx : dot.x + BESIDE, dot.y - text.cy / 2};
  if (corner.x < area.left || corner.x + text.cx > area.right || CoversLetter(corner, text)) {
    const LONG letterTop = centerY - LETTER_RISE;
    corner.x = std::clamp(corner.x, area.left, std::max(area.left, area.right - text.cx));
    corner.y = dot.y < centerY ? std::min(dot.y - DOT_RADIUS, letterTop) - text.cy
                               : std::max(dot.y + DOT_RADIUS, letterTop + text.cy);
  }
  return corner;
}

/// Only E and W can be covered: N and S lie above and below the dots, numbers beside them.
bool SkyGeometry::CoversLetter(POINT corner, SIZE text) const {
  const LONG outermost = std::max(corner.x + text.cx - centerX, centerX - corner.x);
  const LONG innermost = std::max(corner.x - centerX, centerX - corner.x - text.cx);
  const LONG letterTop = centerY - LETTER_RISE;
  return outermost > radius && innermost < radius + CIRCLE_MARGIN &&
         corner.y < letterTop + text.cy && corner.y + text.cy > letterTop;
}

int SkyGeometry::RoomBeside(int depth) const {
  const int half = centerX - area.left;
  const int up = std::max<int>(centerY - area.top - depth, 0);
  if (up >= radius) {
    return half - LETTER_ROOM;
  }
  const double chord = std::sqrt(static_cast<double>(radius * radius - up * up));
  return half - std::max(static_cast<int>(std::ceil(chord)) + 1, LETTER_ROOM);
}

}  // namespace ferolin
