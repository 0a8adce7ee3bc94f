#include "parlex/Patience.h"

#include <poll.h>

#include <algorithm>
#include <array>
#include <climits>

namespace parlex {

void Patience::AwaitDescriptor(int descriptor, short events, Clock::time_point deadline) {
  using std::chrono::milliseconds;
  // Rounded up: a time-out of 0 would spin during the last millisecond.
  const auto left = std::chrono::ceil<milliseconds>(std::min(deadline, GetEnd()) - Clock::now());
  const auto timeout = std::clamp<milliseconds::rep>(left.count(), 0, INT_MAX);
  std::array<pollfd, 2> wanted = {
      {{descriptor, events, 0}, {changed.GetDescriptor(), POLLIN, 0}},
  };
  poll(wanted.data(), wanted.size(), static_cast<int>(timeout));
  if (wanted[1].revents) {
    changed.Clear();
  }
}

}  // namespace parlex
