#include "windows/Timers.h"

#include <algorithm>

#include "time/Clock.h"

namespace handheld {

namespace {

constexpr DWORD SHORTEST_PERIOD_MS = 10;

/// Milliseconds until `due`, below 0 when it has passed. The tick count starts anew after 49 days.
int MsUntil(DWORD due, DWORD ticks) {
  return static_cast<int>(due - ticks);
}

}  // namespace

MSG Timers::Timer::GetMessage(DWORD ticks) const {
  MSG message = {};
  message.hwnd = window;
  message.message = WM_TIMER;
  message.wParam = number;
  message.time = ticks;
  return message;
}

void Timers::Set(HWND window, UINT_PTR number, DWORD periodMs) {
  Kill(window, number);
  const DWORD period = std::max(periodMs, SHORTEST_PERIOD_MS);
  timers.push_back({window, number, period, Clock::Instance().GetTicks() + period});
}

bool Timers::Kill(HWND window, UINT_PTR number) {
  return std::erase_if(timers, [&](const Timer& timer) {
           return timer.window == window && timer.number == number;
         }) != 0;
}

void Timers::DropWindow(HWND window) {
  std::erase_if(timers, [window](const Timer& timer) { return timer.window == window; });
}

std::optional<MSG> Timers::FindDue(const Filter& isWanted, bool restart) {
  const DWORD ticks = Clock::Instance().GetTicks();
  Timer* longest = nullptr;
  for (Timer& timer : timers) {
    const int untilDue = MsUntil(timer.dueTicks, ticks);
    if (untilDue <= 0 && isWanted(timer.GetMessage(ticks)) &&
        (longest == nullptr || untilDue < MsUntil(longest->dueTicks, ticks))) {
      longest = &timer;
    }
  }
  if (longest == nullptr) {
    return std::nullopt;
  }
  if (restart) {
    longest->dueTicks = ticks + longest->periodMs;
  }
  return longest->GetMessage(ticks);
}

std::optional<std::chrono::nanoseconds> Timers::GetWait(const Filter& isWanted) const {
  const Clock& clock = Clock::Instance();
  const DWORD ticks = clock.GetTicks();
  std::optional<int> shortestMs;
  for (const Timer& timer : timers) {
    if (isWanted(timer.GetMessage(ticks))) {
      const int wait = std::max(MsUntil(timer.dueTicks, ticks), 0);
      shortestMs = std::min(shortestMs.value_or(wait), wait);
    }
  }
  if (!shortestMs) {
    return std::nullopt;
  }
  return std::chrono::nanoseconds(static_cast<std::int64_t>(*shortestMs * 1e6 / clock.GetRate()));
}

}  // namespace handheld
