#include "window/SleepWatch.h"

namespace app {

namespace {

constexpr int MINUTE = 60;
constexpr int HOUR = 3600;
constexpr int DAY = 86'400;
constexpr int SHORTEST_SLEEP = 10;
constexpr DWORD SECOND_MS = 1000;

int SecondOfDay() {
  SYSTEMTIME local = {};
  GetLocalTime(&local);
  return local.wHour * HOUR + local.wMinute * MINUTE + local.wSecond;
}

}  // namespace

/// A clock that is set back seems to have gone on by nearly a day; that is no harm.
bool SleepWatch::HasSlept() {
  const DWORD tickMs = GetTickCount();
  const int second = SecondOfDay();
  const int passed = lastSecondOfDay < 0 ? 0 : (second - lastSecondOfDay + DAY) % DAY;
  const int awake = static_cast<int>((tickMs - lastTickMs) / SECOND_MS);
  lastTickMs = tickMs;
  lastSecondOfDay = second;
  return passed > awake + SHORTEST_SLEEP;
}

}  // namespace app
