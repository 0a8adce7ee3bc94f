#include "widgets/BarCountdown.h"

#include <algorithm>

namespace ferolin {

bool BarCountdown::TakeOne() {
  if (count == 0) {
    return false;
  }
  --count;
  return true;
}

BYTE BarCountdown::GetAlpha() const {
  constexpr int FULL_ALPHA = 192;
  constexpr int FADING = 4;
  return static_cast<BYTE>(std::min(count * FULL_ALPHA / FADING, FULL_ALPHA));
}

}  // namespace ferolin
