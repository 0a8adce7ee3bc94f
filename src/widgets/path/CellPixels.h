#pragma once

#include <windows.h>

#include <array>
#include <cstdint>

#include "widgets/path/PathCells.h"
#include "widgets/path/PathProjection.h"

namespace ferolin {

/// Which pixels the points of a cell lie in, as far as the cell tells.
class CellPixels {
 public:
  /// A cell may cover this many pixels either way.
  static constexpr int MOST_PIXELS = 8;

  /// A set of pixels of the cell's rectangle: bit x + 8 * y, from west to east and from south to
  /// north.
  using Pixels = std::uint64_t;

  /// `rect` is that of the cell's box, all edges included. The cell is borrowed.
  CellPixels(const PathCells::Cell& theCell, double theStepLength, const PathProjection& projection,
             const RECT& rect);
  CellPixels(const CellPixels&) = delete;
  CellPixels& operator=(const CellPixels&) = delete;

  /// In which there is a point for sure.
  Pixels GetSure() const { return sure; }
  /// In which there may be a point.
  Pixels GetPossible() const { return possible; }

  /// Where in a pixel that is possible, but not sure, there may be points.
  PathBox RegionIn(Pixels pixel) const;

 private:
  /// Where along a side of the cell one pixel ends and the next one begins.
  class Side {
   public:
    enum Direction { EASTWARD, NORTHWARD };
    /// `cellNumber`: the column of an eastward side's cells, the row of a northward one's.
    Side(Direction theDirection, std::int32_t cellNumber);

    void AddEdge(double step, double slack);

    /// The columns, or rows, that steps `first` to `last` may lie in.
    Pixels PixelsOf(int first, int last) const;

    /// Tells `take(strips, pixels)` of all strips across, together if they lie in the same pixels
    /// for sure.
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
    int grain;  ///< how many steps positions lie apart; 0: less than one
  };

  /// Strips `from` up to, but not including, `to`.
  struct StripRange {
    int from;
    int to;
  };

  /// Strips that lie in the same pixels, of which there may be two across.
  struct Band {
    StripRange strips;
    std::uint8_t low;
    std::uint8_t high;
    Pixels pixels;
  };

  /// The strips of a cell in one direction.
  class Sight {
   public:
    explicit Sight(const Side& theAlong) : along(theAlong) {}
    void Take(const PathCells::Strips& strips, const Side& across);

    Pixels GetPossible() const;
    /// Of pixels that are possible.
    Pixels GetSure(Pixels possible) const;
    /// The strips that make a pixel possible.
    StripRange StripsTo(Pixels pixel) const;

   private:
    Pixels Reach(const Band& band) const {
      return band.pixels & along.PixelsOf(band.low, band.high);
    }

    const Side& along;
    std::array<Band, 2 * MOST_PIXELS> bands;
    std::size_t count = 0;
  };

  const PathCells::Cell& cell;
  double stepLength;
  Side eastward;
  Side northward;
  Sight columns{northward};
  Sight rows{eastward};
  Pixels possible = 0;
  Pixels sure = 0;
};

}  // namespace ferolin
