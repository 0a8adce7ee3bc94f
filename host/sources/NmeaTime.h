// Times and dates of NMEA sentences.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace host {

/// Milliseconds since midnight of "hhmmss" or "hhmmss.ss", cut after the thousandths. Nothing for a
/// time that does not exist; 23:59:60 does, as a leap second.
std::optional<std::int64_t> ParseNmeaTime(std::string_view time);

/// Milliseconds since 1970 of "ddmmyy"; years from 90 on are of the 1900s, as the engine reads them.
/// Nothing for a date that does not exist.
std::optional<std::int64_t> ParseNmeaDate(std::string_view date);

}  // namespace host
