#include "dastrel/GpsdReport.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <nlohmann/json.hpp>
#include <string>

namespace dastrel {

namespace {

using Json = nlohmann::json;

struct Range {
  double lowest;
  double highest;
};

constexpr Range LATITUDES = {-90, 90};
constexpr Range LONGITUDES = {-180, 180};
constexpr Range ALTITUDES = {-10000, 100000};
/// Up to 2,000 km/h.
constexpr Range SPEEDS = {0, 2000 / 3.6};
constexpr Range COURSES = {0, 360};
constexpr Range DILUTIONS = {0, 100};
constexpr Range ELEVATIONS = {-90, 90};
constexpr Range SIGNALS = {-100, 100};
constexpr Range WHOLE_NUMBERS = {0, 9999};

double NumberOf(const Json& object, const char* key, Range range) {
  const auto found = object.find(key);
  if (found == object.end() || !found->is_number()) {
    return UNKNOWN;
  }
  const auto value = found->get<double>();
  return value >= range.lowest && value <= range.highest ? value : UNKNOWN;
}

/// 0 when it is unknown.
int WholeNumberOf(const Json& object, const char* key) {
  const double value = NumberOf(object, key, WHOLE_NUMBERS);
  return value >= 0 ? static_cast<int>(value) : 0;
}

/// The digits at `position`; -1 for anything else.
int Digits(std::string_view text, std::size_t position, std::size_t count) {
  int value = -1;
  const char* start = text.data() + position;
  const auto result = std::from_chars(start, start + count, value);
  return result.ptr == start + count && value >= 0 ? value : -1;
}

/// "2024-02-29T23:59:58.250Z"; the fraction may be missing or have any length.
std::optional<std::chrono::sys_time<std::chrono::milliseconds>> ParseTime(std::string_view text) {
  using namespace std::chrono;
  constexpr std::string_view SHAPE = "0000-00-00T00:00:00";
  if (text.size() <= SHAPE.size() || text.back() != 'Z') {
    return std::nullopt;
  }
  const year_month_day date{year(Digits(text, 0, 4)),
                            month(static_cast<unsigned>(Digits(text, 5, 2))),
                            day(static_cast<unsigned>(Digits(text, 8, 2)))};
  const int hour = Digits(text, 11, 2);
  const int minute = Digits(text, 14, 2);
  const int second = Digits(text, 17, 2);
  const bool isTime = date.year() >= year(1970) && hour >= 0 && hour < 24 && minute >= 0 &&
                      minute < 60 && second >= 0 && second <= 60;
  if (!date.ok() || !isTime) {
    return std::nullopt;
  }
  std::string fraction(text.substr(SHAPE.size(), text.size() - SHAPE.size() - 1));
  fraction.resize(4, '0');  // the point and thousandths
  const int thousandths = std::max(Digits(fraction, 1, 3), 0);
  return sys_days(date) + hours(hour) + minutes(minute) + seconds(second) +
         milliseconds(thousandths);
}

GpsdFix ParseFix(const Json& object) {
  GpsdFix fix;
  fix.mode = WholeNumberOf(object, "mode");
  fix.status = WholeNumberOf(object, "status");
  if (const auto time = object.find("time"); time != object.end() && time->is_string()) {
    fix.time = ParseTime(time->get_ref<const std::string&>());
  }
  fix.latitude = NumberOf(object, "lat", LATITUDES);
  fix.longitude = NumberOf(object, "lon", LONGITUDES);
  fix.seaLevelAltitude = NumberOf(object, "altMSL", ALTITUDES);
  fix.ellipsoidAltitude = NumberOf(object, "altHAE", ALTITUDES);
  fix.speed = NumberOf(object, "speed", SPEEDS);
  fix.course = NumberOf(object, "track", COURSES);
  return fix;
}

GpsdSatellite ParseSatellite(const Json& object) {
  GpsdSatellite satellite;
  satellite.prn = WholeNumberOf(object, "PRN");
  satellite.elevation = NumberOf(object, "el", ELEVATIONS);
  satellite.azimuth = NumberOf(object, "az", COURSES);
  satellite.signal = NumberOf(object, "ss", SIGNALS);
  const auto used = object.find("used");
  satellite.isUsed = used != object.end() && used->is_boolean() && used->get<bool>();
  return satellite;
}

GpsdSky ParseSky(const Json& object) {
  GpsdSky sky;
  sky.pdop = NumberOf(object, "pdop", DILUTIONS);
  sky.hdop = NumberOf(object, "hdop", DILUTIONS);
  sky.vdop = NumberOf(object, "vdop", DILUTIONS);
  const auto list = object.find("satellites");
  if (list != object.end() && list->is_array()) {
    for (const Json& each : *list) {
      if (each.is_object()) {
        sky.satellites.push_back(ParseSatellite(each));
      }
    }
  }
  return sky;
}

}  // namespace

GpsdReport GpsdReport::Parse(std::string_view line) {
  constexpr bool THROWS = false;
  GpsdReport report;
  const Json object = Json::parse(line, nullptr, THROWS);
  report.isSensible = object.is_object();
  if (!report.isSensible) {
    return report;
  }
  const auto kind = object.find("class");
  if (kind != object.end() && *kind == "TPV") {
    report.fix = ParseFix(object);
  }
  if (kind != object.end() && *kind == "SKY") {
    report.sky = ParseSky(object);
  }
  return report;
}

}  // namespace dastrel
