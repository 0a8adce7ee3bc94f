#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>

#include "base/GrowingArray.h"
#include "widgets/path/PathBox.h"
#include "widgets/path/PathPoints.h"

namespace ferolin {

/// Where a long track has been: the cells of a square grid in which there are points of it, and
/// roughly where in each cell. A road takes no more of them, however often it is driven. At first
/// the grid is as fine as the track's extent needs. There are at most 10,000 cells, of 280 bytes;
/// when a track spreads over more, the grid becomes coarser.
class PathCells {
 public:
  /// Shorter tracks have no cells: they are drawn as fast without.
  static constexpr int FEWEST_POINTS = 50'000;

  /// That an update takes in, so that none lasts long when the track has become long enough.
  static constexpr int POINTS_AT_ONCE = 32;

  /// A cell's side is cut into steps, and each 4 of them make a strip.
  static constexpr int STEPS = 256;
  static constexpr int STRIPS = 64;
  static constexpr int STRIP_STEPS = STEPS / STRIPS;

  /// From which step to which points lie; there are some at both ends.
  struct Extent {
    std::uint8_t low = STEPS - 1;
    std::uint8_t high = 0;

    bool IsEmpty() const { return low > high; }
  };

  /// Where along each strip its points lie. Strips go from west to east or from south to north.
  class Strips {
   public:
    Strips();

    /// Takes in a point that lies at these steps across the strips and along its own.
    void Add(std::int32_t across, std::int32_t along);

    /// Of strips `from` up to, but not including, `to`, all together.
    Extent Join(int from, int to) const;

   private:
    std::array<std::uint8_t, STRIPS> lows;
    std::array<std::uint8_t, STRIPS> highs;
  };

  struct Cell {
    // Of the grid.
    std::int32_t column;
    std::int32_t row;
    Strips columns;
    Strips rows;
  };

  /// Takes in some of the points that have not been taken in yet. A track that has become shorter
  /// is a new one; one that has lost its oldest points has no cells any more.
  void Update(const PathPoints& points);

  std::span<const Cell> GetCells() const { return cells.Get(); }
  /// Of each cell, the smallest that holds its points.
  std::span<const PathBox> GetBoxes() const { return boxes.Get(); }

  /// How long a step is, in degrees x 100 + minutes: step s of cell c begins at
  /// (c x STEPS + s) x step length, and what lies there belongs to it.
  double GetStepLength() const { return 1.0 / stepsPerUnit; }

  /// Whether the cells hold all points, up to this number. Never without memory, nor with positions
  /// that are not of this world.
  bool Hold(int pointEnd) const { return state == State::USABLE && end == pointEnd; }

 private:
  enum class State : std::uint8_t { EMPTY, USABLE, UNUSABLE };
  static constexpr std::size_t MOST_CELLS = 10'000;
  static constexpr std::size_t SLOTS = 1 << 15;
  static constexpr std::size_t NONE = MOST_CELLS;
  static constexpr float FINEST = 1 << 16;

  void Start(const PathPoints& points);
  void Drop();
  bool Add(const TrackPoint& point);
  std::size_t Find(std::int32_t column, std::int32_t row);
  bool Coarsen();

  State state = State::EMPTY;
  int end = 0;  ///< number of the next point to take in
  float stepsPerUnit = FINEST;
  GrowingArray<Cell> cells;
  GrowingArray<PathBox> boxes;  // by themselves, because most drawings look at little else
  /// Finds cells by their place: number of the cell + 1, or 0, in the first free slot from that of
  /// its place on.
  std::unique_ptr<std::uint16_t[]> slots;
};

}  // namespace ferolin
