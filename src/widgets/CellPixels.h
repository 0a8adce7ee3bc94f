#pragma once

#include <windows.h>

#include <array>
#include <cstdint>

#include "widgets/PathCells.h"
#include "widgets/PathProjection.h"

namespace ferolin {

/// Which pixels the points of a cell lie in, as far as the cell tells.
class CellPixels {
 public:
  /// A cell may cover this many pixels either way.
  static constexpr int MOST_PIXELS = 8;

  /// A set of pixels of the cell's rectangle: bit x + 8 * y, from west to east and from south to
  /// north.
  using Pixels = std::uint64_t;

  /// `rect` is that of the cell's box, all edges included.
  CellPixels(const PathCells::Cell& cell, double stepLength, const PathProjection& projection,
             const RECT& rect);

  /// In which there is a point for sure.
  Pixels GetSure() const { return sure; }
  /// In which there may be a point.
  Pixels GetPossible() const { return possible; }

 private:
  /// Where along a side of the cell one pixel ends and the next one begins.
  class Side {
   public:
    enum Direction { EASTWARD, NORTHWARD };
    explicit Side(Direction theDirection) : direction(theDirection) {}

    void AddEdge(double step, double slack);

    /// The columns, or rows, that steps `first` to `last` may lie in.
    Pixels PixelsOf(int first, int last) const;

    /// Tells `take(from, to, pixels)` of all strips across, together if they lie in the same pixels
    /// for sure: strips `from` up to, but not including, `to`.
    template <class Take>
    void ForStrips(Take take) const;

   private:
    struct Edge {
      int before;  ///< what lies below this step lies in the pixels up to the edge
      int after;   ///< what lies at it and above lies in those after the edge
    };
    Pixels Span(int low, int high) const;

    Direction direction;
    std::array<Edge, MOST_PIXELS> edges;
    int count = 0;
  };

  /// Strips that lie in the same pixels, of which there may be two across.
  struct Band {
    PathCells::Extent extent;
    Pixels pixels;
  };

  /// The strips of a cell in one direction.
  class Sight {
   public:
    Sight(const std::array<PathCells::Extent, PathCells::STRIPS>& strips, const Side& across,
          const Side& theAlong);
    Pixels GetPossible() const;
    /// Of pixels that are possible.
    Pixels GetSure(Pixels possible) const;

   private:
    const Side& along;
    std::array<Band, 2 * MOST_PIXELS> bands;
    std::size_t count = 0;
  };

  Pixels possible = 0;
  Pixels sure = 0;
};

}  // namespace ferolin
