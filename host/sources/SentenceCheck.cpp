#include "sources/SentenceCheck.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "sources/NmeaTime.h"

namespace host {

namespace {

constexpr double HIGHEST_KMH = 2000;
constexpr double HIGHEST_KNOTS = HIGHEST_KMH / 1.852;
constexpr double HIGHEST_LATITUDE = 90;
constexpr double HIGHEST_LONGITUDE = 180;

/// What receivers send for a date that they do not know yet.
constexpr std::string_view UNKNOWN_DATE = "000000";

/// NaN for what is no number.
double ParseFixed(std::string_view text) {
  double value = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value, std::chars_format::fixed);
  const bool isNumber = result.ec == std::errc() && result.ptr == end;
  return isNumber ? value : std::numeric_limits<double>::quiet_NaN();
}

bool IsPrintable(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char character) { return character >= ' ' && character <= '~'; });
}

bool IsSpeed(std::string_view text, double highest) {
  const double speed = ParseFixed(text);
  return text.empty() || (speed >= 0 && speed <= highest);
}

/// `value` is "dddmm.mmmm".
bool IsCoordinate(std::string_view value, std::string_view hemisphere, std::string_view hemispheres,
                  double highestDegrees) {
  const bool isHemisphere =
      hemisphere.size() <= 1 && hemispheres.find(hemisphere) != std::string_view::npos;
  if (value.empty()) {
    return isHemisphere;
  }
  const double number = ParseFixed(value);
  const double degrees = std::floor(number / 100);
  const double minutes = number - degrees * 100;
  return isHemisphere && number >= 0 && minutes < 60 && degrees + minutes / 60 <= highestDegrees;
}

/// The position's four fields begin at `index`.
bool IsPosition(const NmeaSentence& sentence, std::size_t index) {
  return IsCoordinate(Field(sentence, index), Field(sentence, index + 1), "NS", HIGHEST_LATITUDE) &&
         IsCoordinate(Field(sentence, index + 2), Field(sentence, index + 3), "EW",
                      HIGHEST_LONGITUDE);
}

bool IsTime(std::string_view text) {
  return text.empty() || ParseNmeaTime(text).has_value();
}

bool IsDate(std::string_view text) {
  return text.empty() || ParseNmeaDate(text).has_value();
}

std::optional<Damage> FindInFix(const NmeaSentence& sentence, std::size_t time,
                                std::size_t position) {
  if (!IsTime(Field(sentence, time))) {
    return Damage::TIME;
  }
  if (!IsPosition(sentence, position)) {
    return Damage::POSITION;
  }
  return std::nullopt;
}

/// $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A
std::optional<Damage> FindInRmc(const NmeaSentence& rmc) {
  const std::string_view date = Field(rmc, 8);
  const bool isDateUnknown = Field(rmc, 1) == "V" && date == UNKNOWN_DATE;
  if (!IsDate(date) && !isDateUnknown) {
    return Damage::DATE;
  }
  if (!IsSpeed(Field(rmc, 6), HIGHEST_KNOTS)) {
    return Damage::SPEED;
  }
  return FindInFix(rmc, 0, 2);
}

/// $GPVTG,084.4,077.8,022.4,041.5*43
/// $GPVTG,084.4,T,077.8,M,022.4,N,041.5,K*4B
std::optional<Damage> FindInVtg(const NmeaSentence& vtg) {
  const bool hasUnits = Field(vtg, 1) == "T";
  const bool isSound = IsSpeed(Field(vtg, hasUnits ? 4 : 2), HIGHEST_KNOTS) &&
                       IsSpeed(Field(vtg, hasUnits ? 6 : 3), HIGHEST_KMH);
  return isSound ? std::nullopt : std::optional(Damage::SPEED);
}

/// False for proprietary sentences, whose names start with "P"; "GP" and others are talkers.
bool IsOfReceiver(const NmeaSentence& sentence) {
  return sentence.GetTalker().size() == 2 && sentence.name[0] != 'P';
}

std::optional<Damage> FindInValues(const NmeaSentence& sentence) {
  const std::string_view type = sentence.GetType();
  if (type == "RMC") {
    return FindInRmc(sentence);
  }
  if (type == "GGA") {
    return FindInFix(sentence, 0, 1);
  }
  if (type == "GLL") {
    return FindInFix(sentence, 4, 0);
  }
  return type == "VTG" ? FindInVtg(sentence) : std::nullopt;
}

}  // namespace

std::optional<Damage> SentenceCheck::Find(std::string_view text, const NmeaSentence& sentence) {
  if (!IsPrintable(text)) {
    return Damage::CHARACTERS;
  }
  if (sentence.checksum == NmeaSentence::Checksum::WRONG) {
    return Damage::CHECKSUM;
  }
  return IsOfReceiver(sentence) ? FindInValues(sentence) : std::nullopt;
}

}  // namespace host
