#pragma once

#include <windows.h>

#include <array>
#include <span>

#include "base/GrowingArray.h"
#include "track/TrackPoint.h"

namespace ferolin {

class Canvas;

/// Marks of a chart where a minute of local time begins: a line for each, and a label with hour and
/// minute for those that have room for one. Newer labels come first; a label that would touch one
/// is left out. Without memory marks are left out, too.
class MinuteMarks {
 public:
  struct Label {
    LONG left;
    std::array<WCHAR, 6> text;  ///< "hh:mm", terminated
  };

  /// Starts over. Labels stay between `left` and `right`. The font must not change from call to
  /// call: its figures are measured once.
  void Begin(Canvas& canvas, HFONT font, LONG left, LONG right);

  /// Adds the track points of the column at `x`. Columns come from right to left, the points of a
  /// column oldest first.
  void Add(LONG x, std::span<const TrackPoint> points);

  /// Columns of the lines, from right to left.
  std::span<const LONG> GetLines() const { return lines.Get(); }
  /// Labels from right to left.
  std::span<const Label> GetLabels() const { return labels.Get(); }

 private:
  void AddLabel(LONG x, const SYSTEMTIME& time);
  void MeasureCharacters(Canvas& canvas, HFONT font);

  std::array<LONG, 10> digitWidths = {};
  LONG colonWidth = 0;
  HFONT measuredFont = nullptr;
  LONG leftLimit = 0;
  LONG rightLimit = 0;
  LONG nextRight = 0;  ///< right edges of further labels must stay left of this
  GrowingArray<LONG> lines;
  GrowingArray<Label> labels;
};

}  // namespace ferolin
