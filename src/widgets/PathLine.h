#pragma once

#include "widgets/GrowingArray.h"
#include "widgets/PathCells.h"
#include "widgets/PathIndex.h"
#include "widgets/PathPoints.h"
#include "widgets/PathProjection.h"
#include "widgets/PathStrokes.h"

namespace ferolin {

/// The line through the points of a track that have a position, as it is drawn, from the first
/// pixel to the last. What lights nothing new is passed over: blocks of the index that show it, and
/// of a long track all that lies in cells which are known to light their pixels.
class PathLine {
 public:
  /// All are borrowed. The index and the cells are up to date with the points.
  struct Track {
    const PathPoints& points;
    const PathIndex& index;
    const PathCells& cells;
  };

  PathLine(const Track& theTrack, const PathProjection& theProjection, PathStrokes& theStrokes)
      : points(theTrack.points),
        index(theTrack.index),
        cells(theTrack.cells),
        projection(theProjection),
        strokes(theStrokes),
        view(theProjection.BoxAround(theStrokes.GetArea())) {}

  void Draw();
  /// The same, best when most of the strokes' area is kept.
  void DrawRest();
  /// The stretch that leads to point `number`, and all from there on.
  void DrawFrom(int number);

  /// The last column that lines lead to which begin or end left of a pixel, and the last row that
  /// lines lead to which begin or end above it. May be further than they do.
  POINT ReachFrom(POINT pixel);

 private:
  /// A pixel that the path may light, and where the points are that would.
  struct Doubt {
    POINT pixel;
    PathBox region;
  };

  bool CellsHelp() const;
  bool HasLongStep(const PathIndex::Block& block) const;
  void DrawWithCells();
  bool DrawCell(std::size_t number, GrowingArray<Doubt>& doubts);
  bool HasPointFor(const Doubt& doubt) const;
  bool HasPointInBlocks(const Doubt& doubt, int level, int first, int last) const;
  bool HasPointAmong(const Doubt& doubt, int from, int to) const;
  void DrawAllBlocks();
  template <class Wanted>
  void DrawBlocks(const Wanted& isWanted);
  template <class Wanted>
  void DrawBlocks(const Wanted& isWanted, int level, int first, int last);
  void DrawPoints(int from, int to);
  void DrawEnd();

  const PathPoints& points;
  const PathIndex& index;
  const PathCells& cells;
  const PathProjection& projection;
  PathStrokes& strokes;
  PathBox view;  ///< what lies outside of it cannot be seen
};

}  // namespace ferolin
