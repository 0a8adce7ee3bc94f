// The words that the user sees, in English and Russian.
#pragma once

#include <cstddef>

namespace ferolin {

enum class Word : std::size_t {
  CHARGING,
  BATTERY_STATUS,
  SPEED_CHART,
  SPEEDOMETER,
  SATELLITES,
  AZIMUTH,
  CURRENT_TIME,
  LONGITUDE,
  LATITUDE,
  SATELLITES_USED,
  ALTITUDE,
  NO_SIGNAL,
  GPS_STATUS,
  MAX_SPEED,
  SPEED,
  FASTEST,
  DAYS,
  AVERAGE_SPEED,
  SECOND,
  KMH,
  KM,
  METRE,
  ELAPSED,
  ACCEL,
  DISTANCE,
  COUNT
};

/// Whether texts are Russian (1) or English (0): Russian when the user's language is. Asked of the
/// device once and kept.
int IsRussianLocale();

/// The word in the user's language, 8-bit text (Russian in code page 1251). Lives as long as the
/// library.
const char* GetText(Word word);

}  // namespace ferolin
