#include "widgets/path/LinePatterns.h"

#include <algorithm>

namespace ferolin {

namespace {

constexpr LONG MIDDLE = LinePatterns::FARTHEST;

}  // namespace

bool LinePatterns::Prepare(HDC model) {
  return sample.Exists() || sample.Clear(model, {SIDE, SIDE}, RGB(0, 0, 0), RGB(255, 255, 255));
}

/// A line lights no more pixels than it leads far.
void LinePatterns::Learn(LONG right, LONG down, Pattern& pattern) {
  const POINT line[] = {{MIDDLE, MIDDLE}, {MIDDLE + right, MIDDLE + down}};
  sample.ClearOutside({});
  Polyline(sample.GetDC(), line, 2);
  sample.FinishDrawing();
  for (LONG y = std::min<LONG>(down, 0); y <= std::max<LONG>(down, 0); ++y) {
    for (LONG x = std::min<LONG>(right, 0); x <= std::max<LONG>(right, 0); ++x) {
      if (sample.IsLit(MIDDLE + x, MIDDLE + y) && pattern.count < pattern.pixels.size()) {
        pattern.pixels[pattern.count++] = {static_cast<std::int8_t>(x),
                                           static_cast<std::int8_t>(y)};
      }
    }
  }
}

}  // namespace ferolin
