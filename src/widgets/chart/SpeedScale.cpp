#include "widgets/chart/SpeedScale.h"

#include <algorithm>

#include "base/Saturate.h"

namespace ferolin {

namespace {

constexpr int TOPS[] = {20, 50, 100};
constexpr int LARGEST_TOP = 200;
constexpr int SMALLEST_STEP = 5;
constexpr int STEPS = 5;
constexpr float FARTHEST = 30000;  // largest coordinate that is drawn at

int TopFor(float highestKmh) {
  for (const int top : TOPS) {
    if (!(highestKmh > static_cast<float>(top))) {
      return top;
    }
  }
  return LARGEST_TOP;
}

}  // namespace

SpeedScale::SpeedScale(float highestKmh)
    : top(TopFor(highestKmh)), step(std::max(top / STEPS, SMALLEST_STEP)) {}

LONG SpeedScale::RowOf(float kmh, const RECT& plot) const {
  const float row = static_cast<float>(plot.bottom) +
                    kmh * static_cast<float>(plot.top - plot.bottom) / static_cast<float>(top);
  return Saturated<LONG>(static_cast<double>(std::clamp(row, -FARTHEST, FARTHEST)));
}

}  // namespace ferolin
