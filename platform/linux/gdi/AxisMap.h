// Source pixels of each target pixel, along one axis of a scaled copy.
#pragma once

#include <vector>

namespace handheld::gdi {

/// Treatment of source pixels that share a target pixel.
enum class Shrinking { KEEP_ALL, KEEP_FIRST, KEEP_LAST };

/// Source pixels first .. last (with first <= last) of one target pixel.
struct SourceRange {
  int first;
  int last;
};

/// Start and signed length of a picture's side. A negative length runs backwards from the start,
/// which is included.
struct Side {
  int start;
  int length;
};

/// Source pixels of the visible target pixels begin .. begin + ranges.size() - 1 of one axis.
class AxisMap {
 public:
  /// Maps targets within low .. high - 1 from sources within 0 .. sourceSize - 1.
  AxisMap(Side target, Side source, int low, int high, int sourceSize, Shrinking shrinking);

  bool IsEmpty() const { return ranges.empty(); }
  int GetBegin() const { return begin; }
  int GetCount() const { return static_cast<int>(ranges.size()); }
  const std::vector<SourceRange>& GetRanges() const { return ranges; }

  /// 1 when each target pixel has the source pixel after that of its left neighbour, -1 when before
  /// it, otherwise 0.
  int GetStep() const { return step; }
  /// True when no target pixel has more than one source pixel.
  bool IsSingle() const { return isSingle; }

 private:
  void Stretch(Side target, Side source, int low, int high, int sourceSize);
  void Shrink(Side target, Side source, int low, int high, int sourceSize, Shrinking shrinking);
  void Classify();

  int begin = 0;
  std::vector<SourceRange> ranges;
  int step = 0;
  bool isSingle = true;
};

}  // namespace handheld::gdi
