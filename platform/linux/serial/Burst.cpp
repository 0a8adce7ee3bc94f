#include "serial/Burst.h"

#include <algorithm>

namespace handheld {

namespace {

using namespace std::chrono_literals;

/// About 20 characters at 9600 baud; longer than any gap that a driver's buffering leaves between
/// bytes.
constexpr Burst::Duration FULL_PAUSE = 20ms;
/// Longer than the gaps between the two or three portions in which one write to a pseudo-terminal
/// may arrive.
constexpr Burst::Duration SHORTEST_PAUSE = 200us;
constexpr Burst::Duration LONGEST_FLOW = 250ms;

}  // namespace

void Burst::Add(std::size_t count, Time now) {
  if (used == 0) {
    start = now;
  }
  used += count;
}

Burst::Duration Burst::GetPause(double rate) const {
  const bool endsLine = used > 0 && buffer[used - 1] == '\n';
  if (!endsLine || rate <= 1) {
    return FULL_PAUSE;
  }
  const auto scaled = Duration(static_cast<Duration::rep>(Duration(FULL_PAUSE).count() / rate));
  return std::max(scaled, SHORTEST_PAUSE);
}

bool Burst::IsOverdue(Time now) const {
  return used > 0 && now - start > LONGEST_FLOW;
}

std::size_t Burst::GetWholeLinesSize() const {
  const char* byte = buffer + used;
  while (byte > buffer && byte[-1] != '\n') {
    --byte;
  }
  return static_cast<std::size_t>(byte - buffer);
}

}  // namespace handheld
