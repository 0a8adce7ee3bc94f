#include "widgets/path/PathLayer.h"

#include <algorithm>
#include <array>
#include <limits>

#include "render/Selection.h"
#include "widgets/path/PathLine.h"
#include "widgets/path/PathStrokes.h"

namespace ferolin {

namespace {

constexpr LONG NOWHERE = std::numeric_limits<LONG>::min();

bool AreEqual(const RECT& a, const RECT& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

/// The part of an area, and what lies beyond those of the area's edges that it reaches.
RECT AndBeyond(const RECT& part, const RECT& area) {
  constexpr LONG FAR_AWAY = static_cast<LONG>(PathProjection::FARTHEST);
  return {part.left == area.left ? -FAR_AWAY : part.left,
          part.top == area.top ? -FAR_AWAY : part.top,
          part.right == area.right ? FAR_AWAY : part.right,
          part.bottom == area.bottom ? FAR_AWAY : part.bottom};
}

void FillArea(HDC dc, const RECT& area, COLORREF color) {
  const HBRUSH brush = CreateSolidBrush(color);
  FillRect(dc, &area, brush);
  DeleteObject(brush);
}

/// A line through all points, in pieces, with its last pixel.
void DrawThrough(HDC dc, const PathPoints& points, const PathProjection& projection,
                 COLORREF color) {
  std::array<POINT, 256> run = {};
  int length = 0;
  for (int number = points.GetFirst(); number < points.GetEnd(); ++number) {
    if (!HasPosition(points[number])) {
      continue;
    }
    run[static_cast<std::size_t>(length++)] = projection.Project(points[number]);
    if (length == static_cast<int>(run.size())) {
      Polyline(dc, run.data(), length);
      run.front() = run.back();
      length = 1;
    }
  }
  Polyline(dc, run.data(), length);
  if (length > 0) {
    const POINT end = run[static_cast<std::size_t>(length - 1)];
    SetPixel(dc, end.x, end.y, color);
  }
}

/// What is done without memory.
void DrawPlainly(HDC dc, const RECT& area, const PathPoints& points,
                 const PathProjection& projection, const PathLayer::Colors& colors) {
  FillArea(dc, area, colors.background);
  const HRGN region = CreateRectRgn(area.left, area.top, area.right, area.bottom);
  const HPEN pen = CreatePen(PS_SOLID, 1, colors.path);
  SelectClipRgn(dc, region);
  {
    const Selection selection(dc, pen);
    DrawThrough(dc, points, projection, colors.path);
  }
  SelectClipRgn(dc, nullptr);
  DeleteObject(pen);
  DeleteObject(region);
}

}  // namespace

void PathLayer::Draw(HDC dc, const RECT& area, const Track& track, const PathProjection& projection,
                     const Colors& colors) {
  if (track.index.IsUsable() && BringUpToDate(dc, area, track, projection, colors)) {
    BitBlt(dc, area.left, area.top, area.right - area.left, area.bottom - area.top, picture.GetDC(),
           0, 0, SRCCOPY);
  } else {
    DrawPlainly(dc, area, track.points, projection, colors);
  }
}

/// False without memory for the picture.
bool PathLayer::BringUpToDate(HDC model, const RECT& area, const Track& track,
                              const PathProjection& projection, const Colors& colors) {
  const bool isKept = Shows(area, track.points, colors) && Pan(track, projection);
  if (!isKept) {
    const SIZE size = {area.right - area.left, area.bottom - area.top};
    if (!patterns.Prepare(model) || !picture.Clear(model, size, colors.background, colors.path)) {
      return false;
    }
  }
  {
    PathStrokes strokes(picture, patterns, area);
    PathLine line(track.index, track.cells, projection, strokes);
    if (!isKept) {
      line.Draw();
    } else if (shownEnd < track.points.GetEnd()) {
      line.DrawFrom(shownEnd);
    }
  }
  shownArea = area;
  shownProjection = projection;
  shownColors = colors;
  shownFirst = track.points.GetFirst();
  shownEnd = track.points.GetEnd();
  return true;
}

bool PathLayer::Shows(const RECT& area, const PathPoints& points, const Colors& colors) const {
  return picture.Exists() && AreEqual(area, shownArea) && colors == shownColors &&
         points.GetFirst() == shownFirst && points.GetEnd() >= shownEnd;
}

/// False when a quarter of the width or of the height cannot stay: drawing all is as fast then.
///
/// Places left of the frame and above it are cut toward zero like all others. For them that is the
/// other way, so they do not just move with the rest, and lines that come from there are drawn
/// anew, too.
bool PathLayer::Pan(const Track& track, const PathProjection& projection) {
  if (projection == shownProjection) {
    return true;
  }
  if (!projection.IsPanned(shownProjection)) {
    return false;
  }
  const RECT& area = shownArea;
  const POINT way = projection.PannedFrom(shownProjection);
  PathStrokes strokes(picture, patterns, area);
  PathLine line(track.index, track.cells, projection, strokes);
  const POINT reach = line.ReachFrom({way.x == 0 ? NOWHERE : std::max<LONG>(way.x, 0) + 1,
                                      way.y == 0 ? NOWHERE : std::max<LONG>(way.y, 0) + 1});
  // Before, the same lines may have led one pixel further.
  const RECT kept = {
      std::max(area.left + way.x, reach.x + 2), std::max(area.top + way.y, reach.y + 2),
      std::min(area.right + way.x, area.right), std::min(area.bottom + way.y, area.bottom)};
  if (kept.right - kept.left < (area.right - area.left) * 3 / 4 ||
      kept.bottom - kept.top < (area.bottom - area.top) * 3 / 4) {
    return false;
  }
  picture.Move(way.x, way.y);
  picture.ClearOutside(
      {kept.left - area.left, kept.top - area.top, kept.right - area.left, kept.bottom - area.top});
  line.DrawRest(AndBeyond(kept, area));
  return true;
}

}  // namespace ferolin
