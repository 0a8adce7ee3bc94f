#include "fine/FineScale.h"

#include <atomic>

#include "handheld.h"
#include "windows/DeviceScreen.h"

namespace handheld {

namespace fine {

namespace {

constexpr double LOGICAL_DPI = 96;
/// With fewer pixels, hinted text is easier to read.
constexpr double LEAST_SCALE = 1.5;

std::atomic<bool> isFine = false;

}  // namespace

double CurrentScale() {
  if (!isFine) {
    return 0;
  }
  const double scale = CurrentScreen().dpi / LOGICAL_DPI;
  return scale >= LEAST_SCALE ? scale : 0;
}

}  // namespace fine

void SetFineDrawing(bool isWanted) {
  fine::isFine = isWanted;
}

}  // namespace handheld
