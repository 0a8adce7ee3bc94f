#include "time/Clock.h"

#include <sched.h>

#include <cerrno>
#include <chrono>
#include <cmath>
#include <ctime>

#include "core/LastError.h"
#include "handheld.h"
#include "time/Calendar.h"
#include "time/TimeZone.h"

namespace handheld {

namespace {

using Calendar::UNITS_PER_SECOND;
constexpr std::int64_t UNITS_PER_MILLISECOND = 10'000;
constexpr DWORD INFINITE = 0xFFFFFFFF;
/// Shorter sleeps only yield, and only once they add up to some time: a system call for each would
/// take longer, and on a busy machine each yield gives the processor away.
constexpr double SHORTEST_SLEEP_NS = 1000;
constexpr double YIELD_INTERVAL_NS = 50'000;

std::int64_t Read(clockid_t clock) {
  timespec now;
  clock_gettime(clock, &now);
  return static_cast<std::int64_t>(now.tv_sec) * UNITS_PER_SECOND + now.tv_nsec / 100;
}

/// A sleep of 0 yields at once.
void Yield(double nanoseconds) {
  thread_local double sinceYield = 0;
  sinceYield += nanoseconds;
  if (nanoseconds > 0 && sinceYield < YIELD_INTERVAL_NS) {
    return;
  }
  sinceYield = 0;
  sched_yield();
}

void SleepNanoseconds(double nanoseconds) {
  if (nanoseconds < SHORTEST_SLEEP_NS) {
    Yield(nanoseconds);
    return;
  }
  const double seconds = std::floor(nanoseconds / 1e9);
  timespec rest = {static_cast<time_t>(seconds), static_cast<long>(nanoseconds - seconds * 1e9)};
  while (nanosleep(&rest, &rest) != 0 && errno == EINTR) {
  }
}

}  // namespace

Clock& Clock::Instance() {
  static Clock& clock = *new Clock;
  return clock;
}

std::int64_t Clock::GetNowLocked() const {
  if (isMachineTime) {
    return Read(CLOCK_REALTIME) + Calendar::UNIX_EPOCH;
  }
  if (isStopped) {
    return timeBase;
  }
  const auto elapsed = static_cast<double>(Read(CLOCK_MONOTONIC) - machineBase);
  return timeBase + static_cast<std::int64_t>(elapsed * GetRate());
}

std::int64_t Clock::GetTicksLocked() const {
  const std::int64_t uptime = Read(CLOCK_MONOTONIC);
  if (machineBase == 0) {
    return uptime;
  }
  return ticksBase +
         static_cast<std::int64_t>(static_cast<double>(uptime - machineBase) * GetRate());
}

void Clock::Rebase() {
  timeBase = GetNowLocked();
  ticksBase = GetTicksLocked();
  machineBase = Read(CLOCK_MONOTONIC);
  isMachineTime = false;
}

std::int64_t Clock::GetNow() const {
  const std::lock_guard lock(mutex);
  return GetNowLocked();
}

void Clock::Set(std::int64_t now) {
  const std::lock_guard lock(mutex);
  Rebase();
  timeBase = now;
}

void Clock::SetStopped(bool stopped) {
  const std::lock_guard lock(mutex);
  Rebase();
  isStopped = stopped;
}

void Clock::SetRate(double newRate) {
  if (!(newRate > 0) || !std::isfinite(newRate)) {
    return;
  }
  const std::lock_guard lock(mutex);
  if (newRate == GetRate()) {
    return;
  }
  Rebase();
  rate.store(newRate, std::memory_order_relaxed);
}

DWORD Clock::GetTicks() const {
  const std::lock_guard lock(mutex);
  return static_cast<DWORD>(GetTicksLocked() / UNITS_PER_MILLISECOND);
}

void Clock::Sleep(DWORD milliseconds) const {
  if (milliseconds != INFINITE) {
    return SleepNanoseconds(milliseconds * 1e6 / GetRate());
  }
  while (true) {
    SleepNanoseconds(1e18);
  }
}

void SetClock(const SYSTEMTIME& utc) {
  if (const auto moment = Calendar::FromFields(utc)) {
    Clock::Instance().Set(*moment);
  }
}

void SetClockStopped(bool stopped) {
  Clock::Instance().SetStopped(stopped);
}

void SetTimeRate(double rate) {
  Clock::Instance().SetRate(rate);
}

extern "C" {

DWORD WINAPI GetTickCount() {
  return Clock::Instance().GetTicks();
}

void WINAPI Sleep(DWORD milliseconds) {
  Clock::Instance().Sleep(milliseconds);
}

void WINAPI GetLocalTime(SYSTEMTIME* local) {
  if (local == nullptr) {
    return;
  }
  const std::int64_t now = Clock::Instance().GetNow();
  const std::int64_t bias = TimeZone::Instance().GetOffsetAt(now) * UNITS_PER_SECOND;
  if (const auto fields = Calendar::ToFields(now + bias)) {
    *local = *fields;
  }
}

}  // extern "C"

}  // namespace handheld
