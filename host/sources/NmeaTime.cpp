#include "sources/NmeaTime.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <string>

namespace host {

namespace {

constexpr std::size_t DIGITS = 6;
constexpr std::string_view LEAP_SECOND = "235960";
constexpr int FIRST_YEAR_OF_1900S = 90;

bool IsAllDigits(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char character) { return character >= '0' && character <= '9'; });
}

/// The two digits at `position`.
int ParsePair(std::string_view digits, std::size_t position) {
  return (digits[position] - '0') * 10 + (digits[position + 1] - '0');
}

int ParseThousandths(std::string_view fraction) {
  std::string digits(fraction.substr(0, 3));
  digits.resize(3, '0');
  int value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

}  // namespace

std::optional<std::int64_t> ParseNmeaTime(std::string_view time) {
  const std::string_view whole = time.substr(0, time.find('.'));
  const std::string_view fraction = time.substr(std::min(whole.size() + 1, time.size()));
  if (whole.size() != DIGITS || !IsAllDigits(whole) || !IsAllDigits(fraction)) {
    return std::nullopt;
  }
  const int hour = ParsePair(whole, 0);
  const int minute = ParsePair(whole, 2);
  const int second = ParsePair(whole, 4);
  if (whole != LEAP_SECOND && (hour > 23 || minute > 59 || second > 59)) {
    return std::nullopt;
  }
  return ((hour * 60LL + minute) * 60 + second) * 1000 + ParseThousandths(fraction);
}

std::optional<std::int64_t> ParseNmeaDate(std::string_view date) {
  if (date.size() != DIGITS || !IsAllDigits(date)) {
    return std::nullopt;
  }
  const int year = ParsePair(date, 4);
  const std::chrono::year_month_day civil(
      std::chrono::year(year + (year < FIRST_YEAR_OF_1900S ? 2000 : 1900)),
      std::chrono::month(static_cast<unsigned>(ParsePair(date, 2))),
      std::chrono::day(static_cast<unsigned>(ParsePair(date, 0))));
  if (!civil.ok()) {
    return std::nullopt;
  }
  return std::chrono::milliseconds(std::chrono::sys_days(civil).time_since_epoch()).count();
}

}  // namespace host
