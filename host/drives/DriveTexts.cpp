#include "drives/DriveTexts.h"

#include <array>
#include <ctime>

#include "base/UtcText.h"

namespace host {

namespace {

constexpr std::array MONTHS = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr int FIRST_YEAR = 1900;
constexpr std::int64_t MS_PER_SECOND = 1000;

std::tm LocalTime(std::int64_t timeMs) {
  const auto seconds = static_cast<std::time_t>(timeMs / MS_PER_SECOND);
  std::tm local = {};
  localtime_r(&seconds, &local);
  return local;
}

std::string TwoDigits(std::int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

/// "2026-11-21".
std::string DescribeDate(const std::tm& local) {
  return std::to_string(local.tm_year + FIRST_YEAR) + "-" + TwoDigits(local.tm_mon + 1) + "-" +
         TwoDigits(local.tm_mday);
}

}  // namespace

std::string DescribeDay(std::int64_t timeMs) {
  const std::tm local = LocalTime(timeMs);
  return std::to_string(local.tm_mday) + " " + MONTHS[static_cast<std::size_t>(local.tm_mon)];
}

std::string DescribeClock(std::int64_t timeMs) {
  const std::tm local = LocalTime(timeMs);
  return TwoDigits(local.tm_hour) + ":" + TwoDigits(local.tm_min) + ":" + TwoDigits(local.tm_sec);
}

std::string DescribeMoment(std::int64_t timeMs) {
  const std::tm local = LocalTime(timeMs);
  return DescribeDate(local) + " " + TwoDigits(local.tm_hour) + ":" + TwoDigits(local.tm_min);
}

std::string DescribeFileTime(std::int64_t timeMs) {
  const std::tm local = LocalTime(timeMs);
  return DescribeDate(local) + "-" + TwoDigits(local.tm_hour) + TwoDigits(local.tm_min) +
         TwoDigits(local.tm_sec);
}

std::string DescribeDuration(std::int64_t durationMs) {
  const std::int64_t seconds = durationMs / MS_PER_SECOND;
  return std::to_string(seconds / 3600) + ":" + TwoDigits(seconds / 60 % 60) + ":" +
         TwoDigits(seconds % 60);
}

std::string DescribeUtc(const std::optional<std::int64_t>& timeMs) {
  return timeMs ? UtcText(*timeMs) : std::string();
}

std::string DescribeCoordinate(const std::optional<double>& degrees) {
  constexpr int DECIMALS = 8;
  return degrees ? DescribeNumber(*degrees, DECIMALS) : std::string();
}

}  // namespace host
