#pragma once

#include "widgets/PathIndex.h"
#include "widgets/PathPoints.h"
#include "widgets/PathProjection.h"
#include "widgets/PathStrokes.h"

namespace ferolin {

/// The line through the points of a track that have a position, as it is drawn: the stretches that
/// the index shows to light nothing new are passed over.
class PathLine {
 public:
  /// All are borrowed. The index is up to date with the points.
  PathLine(const PathPoints& thePoints, const PathIndex& theIndex,
           const PathProjection& theProjection, PathStrokes& theStrokes)
      : points(thePoints), index(theIndex), projection(theProjection), strokes(theStrokes) {}

  void Draw();
  /// The stretch that leads to point `number`, and all from there on.
  void DrawFrom(int number);

 private:
  void DrawBlocks(int level, int first, int last);
  void DrawPoints(int from, int to);

  const PathPoints& points;
  const PathIndex& index;
  const PathProjection& projection;
  PathStrokes& strokes;
};

}  // namespace ferolin
