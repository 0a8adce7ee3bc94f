#pragma once

#include <windows.h>

#include <array>
#include <span>

#include "base/GrowingArray.h"
#include "track/TrackPoint.h"

namespace ferolin {

class Canvas;

/// Marks below a chart where a minute of local time begins, each with hour and minute. A mark whose
/// label would touch the one right of it is left out.
class MinuteMarks {
 public:
  struct Mark {
    LONG x;
    LONG labelLeft;
    std::array<WCHAR, 6> label;  ///< "hh:mm", terminated
  };

  /// Starts over. Labels stay between `left` and `right`. The font must not change from call to
  /// call: its figures are measured once.
  void Begin(Canvas& canvas, HFONT font, LONG left, LONG right);

  /// Goes on with points that share one column. Columns come from right to left, points are given
  /// oldest first.
  void Add(LONG x, std::span<const TrackPoint> points);

  std::span<const Mark> Get() const { return marks.Get(); }

 private:
  void AddMark(LONG x, const SYSTEMTIME& time);
  void MeasureCharacters(Canvas& canvas, HFONT font);

  std::array<LONG, 10> digitWidths = {};
  LONG colonWidth = 0;
  HFONT measuredFont = nullptr;
  LONG leftLimit = 0;
  LONG rightLimit = 0;
  LONG nextRight = 0;  ///< right edges of labels have to stay left of this
  GrowingArray<Mark> marks;
};

}  // namespace ferolin
