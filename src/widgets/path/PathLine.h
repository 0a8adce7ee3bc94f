#pragma once

#include <cstdint>
#include <span>

#include "base/GrowingArray.h"
#include "widgets/path/PathCells.h"
#include "widgets/path/PathIndex.h"
#include "widgets/path/PathProjection.h"
#include "widgets/path/PathStrokes.h"

namespace ferolin {

/// The line through the points of a track that have a position, as it is drawn, from the first
/// pixel to the last. What lights nothing new is passed over: blocks of the index that show it, and
/// of a long track all that lies in cells which are known to light their pixels.
class PathLine {
 public:
  /// All are borrowed. The index is usable and knows of a position.
  PathLine(const PathIndex& theIndex, const PathCells& theCells,
           const PathProjection& theProjection, PathStrokes& theStrokes)
      : index(theIndex),
        cells(theCells),
        projection(theProjection),
        strokes(theStrokes),
        view(theProjection.BoxAround(theStrokes.GetArea())),
        inside(theProjection.BoxInside(theStrokes.GetArea())),
        longStep(LONG_STEP * theProjection.GetPixelSize()),
        shortStep(SHORT_STEP * theProjection.GetPixelSize()) {}

  void Draw();
  /// The same, best when only little is to be drawn: lines that stay inside `kept`, which may reach
  /// beyond the strokes' area, are there already.
  void DrawRest(const RECT& kept);
  /// The stretch that leads to point `number`, and all from there on.
  void DrawFrom(int number);

  /// The last column that lines lead to which begin or end left of a pixel, and the last row that
  /// lines lead to which begin or end above it. May be further than they do.
  POINT ReachFrom(POINT pixel);

 private:
  /// Lines that are shorter, in pixels, lead to the same pixel or to a neighbour.
  static constexpr double LONG_STEP = 0.999;
  /// Lines that are no longer than that are covered by the patterns.
  static constexpr double SHORT_STEP = LinePatterns::FARTHEST - 0.001;

  /// A pixel that the path may light, and where the points are that would.
  struct Doubt {
    POINT pixel;
    PathBox region;
  };

  /// What of a block is to be drawn.
  enum class Part : std::uint8_t { NONE, SOME, ALL };

  bool CellsHelp() const;
  bool HasLongStep(const PathIndex::Block& block) const { return block.step >= longStep; }
  bool LeadsOn(int level, const PathIndex::Block& block) const;
  void DrawWithCells();
  bool DrawCell(std::size_t number, GrowingArray<Doubt>& doubts);
  bool HasPointFor(const Doubt& doubt) const;
  bool HasPointInBlocks(const Doubt& doubt, int level, int first, int last) const;
  bool HasPointAmong(const Doubt& doubt, int from, int to) const;
  void DrawAllBlocks();
  template <class Choose>
  void DrawBlocks(const Choose& choose);
  template <class Choose>
  void DrawBlocks(const Choose& choose, int level, int first, int last, bool areInside);
  void DrawLines(std::span<const PathIndex::Position> through);
  void DrawShortLinesInside(std::span<const PathIndex::Position> through);
  void DrawEnd();

  const PathIndex& index;
  const PathCells& cells;
  const PathProjection& projection;
  PathStrokes& strokes;
  PathBox view;    ///< what lies outside of it cannot be seen
  PathBox inside;  ///< what lies inside of it is all seen
  // In degrees x 100 + minutes.
  double longStep;
  double shortStep;
};

}  // namespace ferolin
