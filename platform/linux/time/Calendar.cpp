#include "time/Calendar.h"

#include <chrono>

#include "core/LastError.h"
#include "time/Clock.h"
#include "time/TimeZone.h"

namespace handheld {

namespace {

using Units = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;

constexpr std::chrono::sys_days FILE_EPOCH{std::chrono::year(1601) / 1 / 1};
constexpr int FIRST_YEAR = 1601;
constexpr int LAST_YEAR = 30827;

/// Offset at the moment that the device's clock shows, daylight saving included. As on the device
/// it serves every moment converted, so the two conversions are exact inverses.
std::int64_t CurrentBias() {
  return TimeZone::Instance().GetOffsetAt(Clock::Instance().GetNow()) * Calendar::UNITS_PER_SECOND;
}

BOOL Shift(const FILETIME* from, FILETIME* to, std::int64_t bias) {
  if (from == nullptr || to == nullptr) {
    return Fail(ERROR_INVALID_PARAMETER, FALSE);
  }
  std::int64_t shifted;
  if (Calendar::Join(*from) < 0 || __builtin_add_overflow(Calendar::Join(*from), bias, &shifted) ||
      shifted < 0) {
    return Fail(ERROR_INVALID_PARAMETER, FALSE);
  }
  *to = Calendar::Split(shifted);
  return TRUE;
}

}  // namespace

std::int64_t Calendar::Join(const FILETIME& file) {
  return static_cast<std::int64_t>(static_cast<std::uint64_t>(file.dwHighDateTime) << 32 |
                                   file.dwLowDateTime);
}

FILETIME Calendar::Split(std::int64_t moment) {
  const auto bits = static_cast<std::uint64_t>(moment);
  return {static_cast<DWORD>(bits), static_cast<DWORD>(bits >> 32)};
}

std::optional<std::int64_t> Calendar::FromFields(const SYSTEMTIME& fields) {
  // std::chrono's month and day hold a byte: larger numbers would be cut.
  if (fields.wYear < FIRST_YEAR || fields.wYear > LAST_YEAR || fields.wMonth > 12 ||
      fields.wDay > 31) {
    return std::nullopt;
  }
  if (fields.wHour > 23 || fields.wMinute > 59 || fields.wSecond > 59 ||
      fields.wMilliseconds > 999) {
    return std::nullopt;
  }
  const std::chrono::year_month_day date{std::chrono::year(fields.wYear),
                                         std::chrono::month(fields.wMonth),
                                         std::chrono::day(fields.wDay)};
  if (!date.ok()) {
    return std::nullopt;
  }
  const Units moment = std::chrono::sys_days(date) - FILE_EPOCH + std::chrono::hours(fields.wHour) +
                       std::chrono::minutes(fields.wMinute) + std::chrono::seconds(fields.wSecond) +
                       std::chrono::milliseconds(fields.wMilliseconds);
  return moment.count();
}

std::optional<SYSTEMTIME> Calendar::ToFields(std::int64_t moment) {
  if (moment < 0) {
    return std::nullopt;
  }
  const Units sinceEpoch(moment);
  const auto days = std::chrono::floor<std::chrono::days>(sinceEpoch);
  const std::chrono::sys_days day = FILE_EPOCH + days;
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss time(
      std::chrono::floor<std::chrono::milliseconds>(sinceEpoch - days));
  SYSTEMTIME fields = {};
  fields.wYear = static_cast<WORD>(static_cast<int>(date.year()));
  fields.wMonth = static_cast<WORD>(static_cast<unsigned>(date.month()));
  fields.wDayOfWeek = static_cast<WORD>(std::chrono::weekday(day).c_encoding());
  fields.wDay = static_cast<WORD>(static_cast<unsigned>(date.day()));
  fields.wHour = static_cast<WORD>(time.hours().count());
  fields.wMinute = static_cast<WORD>(time.minutes().count());
  fields.wSecond = static_cast<WORD>(time.seconds().count());
  fields.wMilliseconds = static_cast<WORD>(time.subseconds().count());
  return fields;
}

extern "C" {

BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME* system, FILETIME* file) {
  if (system == nullptr || file == nullptr) {
    return Fail(ERROR_INVALID_PARAMETER, FALSE);
  }
  const auto moment = Calendar::FromFields(*system);
  if (!moment) {
    return Fail(ERROR_INVALID_PARAMETER, FALSE);
  }
  *file = Calendar::Split(*moment);
  return TRUE;
}

BOOL WINAPI FileTimeToSystemTime(const FILETIME* file, SYSTEMTIME* system) {
  if (system == nullptr || file == nullptr) {
    return Fail(ERROR_INVALID_PARAMETER, FALSE);
  }
  const auto fields = Calendar::ToFields(Calendar::Join(*file));
  if (!fields) {
    return Fail(ERROR_INVALID_PARAMETER, FALSE);
  }
  *system = *fields;
  return TRUE;
}

BOOL WINAPI FileTimeToLocalFileTime(const FILETIME* utc, FILETIME* local) {
  return Guarded<BOOL>(FALSE, [&] { return Shift(utc, local, CurrentBias()); });
}

BOOL WINAPI LocalFileTimeToFileTime(const FILETIME* local, FILETIME* utc) {
  return Guarded<BOOL>(FALSE, [&] { return Shift(local, utc, -CurrentBias()); });
}

}  // extern "C"

}  // namespace handheld
