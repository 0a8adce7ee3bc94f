// Moments in the device's file time (units of 100 ns since the start of 1601) and their calendar
// fields.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

namespace handheld::Calendar {

/// Start of 1970.
constexpr std::int64_t UNIX_EPOCH = 116'444'736'000'000'000;
constexpr std::int64_t UNITS_PER_SECOND = 10'000'000;

/// Conversion between a moment and the two halves in which the API passes it.
std::int64_t Join(const FILETIME& file);
FILETIME Split(std::int64_t moment);

/// No value for fields that name no moment from 1601 on. Ignores the day of the week.
std::optional<std::int64_t> FromFields(const SYSTEMTIME& fields);

/// No value for negative moments.
std::optional<SYSTEMTIME> ToFields(std::int64_t moment);

}  // namespace handheld::Calendar
