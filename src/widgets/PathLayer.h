#pragma once

#include <windows.h>

#include "render/Surface.h"
#include "widgets/PathIndex.h"
#include "widgets/PathPoints.h"
#include "widgets/PathProjection.h"

namespace ferolin {

/// The drawn path, kept for the next frame: as long as it is seen in the same way, only what has
/// been driven since is drawn. Used under the engine's data lock.
class PathLayer {
 public:
  struct Colors {
    COLORREF background;
    COLORREF path;
    bool operator==(const Colors&) const = default;
  };

  PathLayer() = default;
  ~PathLayer() { picture.Release(); }
  PathLayer(const PathLayer&) = delete;
  PathLayer& operator=(const PathLayer&) = delete;

  /// Fills an area of `dc` with the background and the path. Draws nothing without memory for the
  /// layer.
  void Draw(HDC dc, const RECT& area, const PathPoints& points, const PathIndex& index,
            const PathProjection& projection, const Colors& colors);

 private:
  bool Shows(const RECT& area, const PathPoints& points, const PathProjection& projection,
             const Colors& colors) const;
  void Clear(HDC dc, SIZE size);

  Surface picture;
  // What the picture shows.
  RECT shownArea = {};
  PathProjection shownProjection;
  Colors shownColors = {};
  int shownFirst = 0;  ///< numbers of points
  int shownEnd = 0;
};

}  // namespace ferolin
