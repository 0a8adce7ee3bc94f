#include "sources/ClockWatch.h"

#include <utility>

namespace host {

bool ClockWatch::Jumps(std::int64_t timeMs) {
  const std::int64_t stepMs = timeMs - std::exchange(lastMs, timeMs).value_or(timeMs);
  return stepMs > LONGEST_GAP.count() || stepMs < -LONGEST_STEP_BACK.count();
}

}  // namespace host
