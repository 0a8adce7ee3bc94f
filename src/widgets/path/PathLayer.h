#pragma once

#include <windows.h>

#include "widgets/path/LinePatterns.h"
#include "widgets/path/PathCells.h"
#include "widgets/path/PathIndex.h"
#include "widgets/path/PathPicture.h"
#include "widgets/path/PathPoints.h"
#include "widgets/path/PathProjection.h"

namespace ferolin {

/// The drawn path, kept for the next frame: as long as it is seen in the same way, only what has
/// been driven since is drawn, and when it is panned, only what comes into view. Used under the
/// engine's data lock.
class PathLayer {
 public:
  struct Colors {
    COLORREF background;
    COLORREF path;
    bool operator==(const Colors&) const = default;
  };

  /// All are borrowed. The index and the cells are up to date with the points, of which one or more
  /// have a position.
  struct Track {
    const PathPoints& points;
    const PathIndex& index;
    const PathCells& cells;
  };

  /// Fills an area of `dc` with the background and the path; the plain way, without what was kept,
  /// when there is no memory for the index or the picture. The track is not kept.
  void Draw(HDC dc, const RECT& area, const Track& track, const PathProjection& projection,
            const Colors& colors);

 private:
  bool BringUpToDate(HDC model, const RECT& area, const Track& track,
                     const PathProjection& projection, const Colors& colors);
  bool Shows(const RECT& area, const PathPoints& points, const Colors& colors) const;
  bool Pan(const Track& track, const PathProjection& projection);

  PathPicture picture;
  LinePatterns patterns;
  // What the picture shows.
  RECT shownArea = {};
  PathProjection shownProjection;
  Colors shownColors = {};
  int shownFirst = 0;  ///< numbers of points
  int shownEnd = 0;
};

}  // namespace ferolin
