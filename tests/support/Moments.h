// Dates and times in tests.
#pragma once

#include <windows.h>

#include <ostream>
#include <tuple>

namespace testing_support {

/// The day of the week is 0; no test depends on it.
inline SYSTEMTIME Moment(int year, int month, int day, int hour, int minute, int second,
                         int milliseconds = 0) {
  const auto word = [](int value) { return static_cast<WORD>(value); };
  return {word(year), word(month),  word(0),      word(day),
          word(hour), word(minute), word(second), word(milliseconds)};
}

/// All fields but the day of the week, for comparison and printing.
inline std::tuple<int, int, int, int, int, int, int> Fields(const SYSTEMTIME& time) {
  return {time.wYear,   time.wMonth,  time.wDay,         time.wHour,
          time.wMinute, time.wSecond, time.wMilliseconds};
}

}  // namespace testing_support
