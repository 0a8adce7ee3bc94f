#include "widgets/satellites/NumberPlaces.h"

#include <algorithm>

#include "widgets/satellites/SkyGeometry.h"

namespace ferolin {

namespace {

/// Distance from one line of figures to the next one, with a gap: figures have no ink in the last
/// fifth of a font's height.
LONG LineOf(SIZE text) {
  return text.cy * 4 / 5;
}

/// Box of a number's ink, with a gap on all sides.
RECT BoxOf(POINT corner, SIZE text) {
  return {corner.x - 1, corner.y + 1, corner.x + text.cx + 1, corner.y + 1 + LineOf(text)};
}

bool Overlap(const RECT& a, const RECT& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

}  // namespace

POINT NumberPlaces::AddDot(const SatelliteInfo& satellite) {
  constexpr LONG RADIUS = SkyGeometry::DOT_RADIUS;
  const POINT dot = sky.PointAt(satellite.elevation, satellite.azimuth);
  Add({dot.x - RADIUS, dot.y - RADIUS, dot.x + RADIUS, dot.y + RADIUS});
  return dot;
}

/// A number that finds no place stays where it is.
POINT NumberPlaces::AddNumber(const SatelliteInfo& satellite, SIZE text) {
  const POINT beside = sky.LabelCorner(sky.PointAt(satellite.elevation, satellite.azimuth), text);
  const LONG outward = beside.y + text.cy / 2 < sky.centerY ? -1 : 1;
  POINT corner = beside;
  for (LONG shift = 0; shift <= LineOf(text) && !IsFree(corner, text); ++shift) {
    corner.y = beside.y + outward * shift;
    if (!IsFree(corner, text)) {
      corner.y = beside.y - outward * shift;
    }
  }
  if (!IsFree(corner, text)) {
    corner = beside;
  }
  Add(BoxOf(corner, text));
  return corner;
}

bool NumberPlaces::IsFree(POINT corner, SIZE text) const {
  const RECT box = BoxOf(corner, text);
  return corner.y >= sky.area.top && corner.y + text.cy <= sky.area.bottom &&
         !sky.CoversLetter(corner, text) &&
         std::none_of(taken.begin(), taken.begin() + count,
                      [&box](const RECT& other) { return Overlap(box, other); });
}

}  // namespace ferolin
