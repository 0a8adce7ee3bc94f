#include "sources/RecordingClock.h"

#include <chrono>

#include "handheld.h"

namespace host {

void RecordingClock::Follow(const Epoch& epoch) {
  using std::chrono::days;
  using std::chrono::milliseconds;
  if (!epoch.timeMs || milliseconds(*epoch.timeMs) < days(1)) {
    return;
  }
  const std::chrono::sys_time<milliseconds> moment{milliseconds(*epoch.timeMs)};
  const auto day = std::chrono::floor<days>(moment);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(moment - day);
  SYSTEMTIME utc = {};
  utc.wYear = static_cast<WORD>(static_cast<int>(date.year()));
  utc.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
  utc.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
  utc.wHour = static_cast<WORD>(time.hours().count());
  utc.wMinute = static_cast<WORD>(time.minutes().count());
  utc.wSecond = static_cast<WORD>(time.seconds().count());
  utc.wMilliseconds = static_cast<WORD>(time.subseconds().count());
  handheld::SetClockStopped(true);
  handheld::SetClock(utc);
}

}  // namespace host
