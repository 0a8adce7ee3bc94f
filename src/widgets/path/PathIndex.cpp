#include "widgets/path/PathIndex.h"

#include <algorithm>
#include <cmath>

namespace ferolin {

void PathIndex::Update(const PathPoints& points) {
  if (end > points.GetEnd()) {
    boxes.Clear();
    end = 0;
  }
  for (end = std::max(end, points.GetFirst()); end < points.GetEnd(); ++end) {
    while (boxes.Get().size() <= BlockOf(end)) {
      if (!boxes.Add({})) {
        return;
      }
    }
    Widen(end, points[end]);
    Widen(std::max(end - 1, points.GetFirst()), points[end]);
  }
}

/// The last line of a block leads to the first point of the next one.
const PathBox& PathIndex::GetBox(int number) const {
  return EndOfBlock(number) < end ? boxes.Get()[BlockOf(number)] : EVERYWHERE;
}

/// A position that is no number has a pixel all the same, outside of every area.
void PathIndex::Widen(int number, const TrackPoint& point) {
  PathBox& box = boxes.Get()[BlockOf(number)];
  box.Widen(point.latitude, point.longitude);
  if (std::isnan(point.latitude) || std::isnan(point.longitude)) {
    box = EVERYWHERE;
  }
}

}  // namespace ferolin
