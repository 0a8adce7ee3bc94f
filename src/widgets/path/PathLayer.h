#pragma once

#include <windows.h>

#include "render/Surface.h"
#include "widgets/path/PathIndex.h"
#include "widgets/path/PathPoints.h"
#include "widgets/path/PathProjection.h"

namespace ferolin {

/// Draws the path and keeps its picture: while the projection stays the same, a frame only adds the
/// newest lines. Used under the engine's data lock.
class PathLayer {
 public:
  struct Colors {
    COLORREF background;
    COLORREF path;
    bool operator==(const Colors&) const = default;
  };

  ~PathLayer() { picture.Release(); }

  /// Fills the projection's area of `dc` with the background and the path. There is at least one
  /// point, and the index is up to date. Without memory for the picture, draws straight into `dc`.
  void Draw(HDC dc, const PathPoints& points, const PathIndex& index,
            const PathProjection& projection, const Colors& colors);

 private:
  bool MakePicture(HDC model, SIZE size);

  Surface picture;  ///< of the frame from its upper left corner to the end of the area
  // Content of the picture.
  PathProjection shownProjection;
  Colors shownColors = {};
  int shownFirst = 0;  ///< number of the oldest point
  int shownEnd = 0;    ///< number of the point after the newest; 0 when nothing is shown
};

}  // namespace ferolin
