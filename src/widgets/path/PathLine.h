#pragma once

#include <windows.h>

#include <array>

#include "widgets/path/PathIndex.h"
#include "widgets/path/PathPoints.h"
#include "widgets/path/PathProjection.h"

namespace ferolin {

/// Draws one polyline through the points of a track, as far as it is seen in the projection's area.
/// Lines outside of the area and points in the pixel of their predecessor are passed over.
class PathLine {
 public:
  /// The context has the pen, which is one pixel wide. The projection is borrowed.
  PathLine(HDC dc, const PathProjection& projection)
      : dc(dc), projection(projection), area(projection.GetArea()) {}

  /// Draws from point `number` to the newest one, including its pixel.
  void Draw(const PathPoints& points, int number, const PathIndex& index);

 private:
  bool IsInside(const RECT& rect) const;
  bool AreOnOneSide(POINT a, POINT b) const;
  void DrawThrough(const TrackPoint& first, const TrackPoint& last, bool areInside);
  void DrawRun(const POINT* end);

  HDC dc;
  const PathProjection& projection;
  RECT area;
  std::array<POINT, PathIndex::BLOCK + 1> run;  ///< the polyline that is being collected
};

}  // namespace ferolin
