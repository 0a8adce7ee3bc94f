#include "sources/FixReader.h"

#include <charconv>
#include <cmath>

#include "sources/NmeaTime.h"

namespace host {

namespace {

constexpr double KMH_PER_KNOT = 1.852;

// Indices in NmeaSentence::fields.
constexpr std::size_t TIME = 0;  // of RMC and GGA
constexpr std::size_t RMC_POSITION = 2;
constexpr std::size_t RMC_KNOTS = 6;
constexpr std::size_t RMC_COURSE = 7;
constexpr std::size_t GGA_POSITION = 1;
constexpr std::size_t GGA_QUALITY = 5;
constexpr std::size_t GGA_SATELLITES = 6;
constexpr std::size_t GGA_HDOP = 7;
constexpr std::size_t GGA_ALTITUDE = 8;
constexpr std::size_t VTG_COURSE = 0;
constexpr std::size_t VTG_UNIT = 1;
constexpr std::size_t VTG_KNOTS_WITHOUT_UNITS = 2;
constexpr std::size_t VTG_KNOTS_WITH_UNITS = 4;
constexpr std::size_t GSA_HDOP = 15;

template <class Number>
std::optional<Number> ParseNumber(std::string_view text) {
  Number value = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  const bool isNumber = result.ec == std::errc() && result.ptr == end;
  return isNumber ? std::optional(value) : std::nullopt;
}

/// Only finite ones.
std::optional<double> ParseDouble(std::string_view text) {
  const std::optional<double> value = ParseNumber<double>(text);
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<double> ParseSpeed(std::string_view knots) {
  const std::optional<double> value = ParseDouble(knots);
  return value ? std::optional(*value * KMH_PER_KNOT) : std::nullopt;
}

/// Degrees of "dddmm.mmmm", negative in the hemisphere `negative`.
std::optional<double> ParseCoordinate(std::string_view value, std::string_view hemisphere,
                                      std::string_view negative) {
  const std::optional<double> number = ParseDouble(value);
  if (!number) {
    return std::nullopt;
  }
  const double degrees = std::floor(*number / 100);
  const double minutes = *number - degrees * 100;
  const double size = degrees + minutes / 60;
  return hemisphere == negative ? -size : size;
}

/// Stores a value that is there; nothing leaves the target as it is.
template <class Value>
void Store(std::optional<Value>& target, std::optional<Value> value) {
  if (value) {
    target = value;
  }
}

template <class Value>
void StoreMissing(std::optional<Value>& target, std::optional<Value> value) {
  if (!target) {
    target = value;
  }
}

}  // namespace

void FixReader::Add(std::string_view text) {
  const Kind kind = KindOf(text);
  if (kind == Kind::NONE) {
    return;
  }
  const NmeaSentence sentence(text);
  const bool hasTime = kind == Kind::RMC || kind == Kind::GGA;
  const std::string_view itsTime = hasTime ? Field(sentence, TIME) : std::string_view();
  if (Begins(kind, itsTime)) {
    const bool isKnown = isDelivered || ender == Kind::NONE;
    ender = isKnown ? latest : Kind::NONE;
    DeliverMoment();
    Forget();
  }
  Take(kind, sentence);
  if (!itsTime.empty()) {
    time = itsTime;
  }
  latest = kind;
  if (kind == ender) {
    DeliverMoment();
  }
}

void FixReader::Finish() {
  DeliverMoment();
  Forget();
  previous = Fix();
  ender = Kind::NONE;
}

FixReader::Kind FixReader::KindOf(std::string_view text) {
  constexpr std::size_t NAME_LENGTH = 5;  // of talker and type
  constexpr std::size_t TALKER_LENGTH = 2;
  const std::string_view body = text.substr(1);
  const std::string_view name = body.substr(0, body.find_first_of(",*"));
  // Names of proprietary sentences start with "P".
  if (name.size() != NAME_LENGTH || name[0] == 'P') {
    return Kind::NONE;
  }
  const std::string_view type = name.substr(TALKER_LENGTH);
  if (type == "RMC") {
    return Kind::RMC;
  }
  if (type == "GGA") {
    return Kind::GGA;
  }
  if (type == "VTG") {
    return Kind::VTG;
  }
  return type == "GSA" ? Kind::GSA : Kind::NONE;
}

/// Whether the sentence is the first one of the next moment.
bool FixReader::Begins(Kind kind, std::string_view itsTime) const {
  const bool isRepeated = (kind == Kind::RMC && hasRmc) || (kind == Kind::GGA && hasGga);
  const bool isOtherTime = !itsTime.empty() && !time.empty() && itsTime != time;
  return isRepeated || isOtherTime;
}

void FixReader::Take(Kind kind, const NmeaSentence& sentence) {
  switch (kind) {
    case Kind::RMC:
      TakeRmc(sentence);
      break;
    case Kind::GGA:
      TakeGga(sentence);
      break;
    case Kind::VTG:
      TakeVtg(sentence);
      break;
    case Kind::GSA:
      TakeGsa(sentence);
      break;
    case Kind::NONE:
      break;
  }
}

/// $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A
void FixReader::TakeRmc(const NmeaSentence& rmc) {
  hasRmc = true;
  fix.hasFix = Field(rmc, RMC_STATUS) == "A";
  TakePosition(rmc, RMC_POSITION);
  Store(fix.speedKmh, ParseSpeed(Field(rmc, RMC_KNOTS)));
  Store(fix.course, ParseDouble(Field(rmc, RMC_COURSE)));
  date = Field(rmc, RMC_DATE);
}

/// $GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47
void FixReader::TakeGga(const NmeaSentence& gga) {
  hasGga = true;
  if (!hasRmc) {
    fix.hasFix = ParseNumber<int>(Field(gga, GGA_QUALITY)).value_or(0) > 0;
    TakePosition(gga, GGA_POSITION);
  }
  Store(fix.satellites, ParseNumber<int>(Field(gga, GGA_SATELLITES)));
  Store(fix.hdop, ParseDouble(Field(gga, GGA_HDOP)));
  Store(fix.altitude, ParseDouble(Field(gga, GGA_ALTITUDE)));
}

/// $GPVTG,084.4,T,077.8,M,022.4,N,041.5,K*4B
/// $GPVTG,084.4,077.8,022.4,041.5*43
void FixReader::TakeVtg(const NmeaSentence& vtg) {
  const bool hasUnits = Field(vtg, VTG_UNIT) == "T";
  StoreMissing(fix.course, ParseDouble(Field(vtg, VTG_COURSE)));
  StoreMissing(fix.speedKmh,
               ParseSpeed(Field(vtg, hasUnits ? VTG_KNOTS_WITH_UNITS : VTG_KNOTS_WITHOUT_UNITS)));
}

/// $GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1*39
void FixReader::TakeGsa(const NmeaSentence& gsa) {
  StoreMissing(fix.hdop, ParseDouble(Field(gsa, GSA_HDOP)));
}

/// The position's four fields begin at `index`.
void FixReader::TakePosition(const NmeaSentence& sentence, std::size_t index) {
  Store(fix.latitude, ParseCoordinate(Field(sentence, index), Field(sentence, index + 1), "S"));
  Store(fix.longitude,
        ParseCoordinate(Field(sentence, index + 2), Field(sentence, index + 3), "W"));
}

/// Does nothing when there is no moment or it was delivered before.
void FixReader::DeliverMoment() {
  const bool isMoment = hasRmc || hasGga;
  if (!isMoment || isDelivered) {
    return;
  }
  fix.timeMs = GetTimeMs();
  deliver(fix);
  isDelivered = true;
}

/// Nothing before the first date.
std::optional<std::int64_t> FixReader::GetTimeMs() const {
  const std::optional<std::int64_t> timeOfDay = ParseNmeaTime(time);
  const std::optional<std::int64_t> day = ParseNmeaDate(date);
  return timeOfDay && day ? std::optional(*day + *timeOfDay) : std::nullopt;
}

Fix FixReader::GetPresent() const {
  Fix present = fix;
  present.timeMs = GetTimeMs();
  StoreMissing(present.altitude, previous.altitude);
  StoreMissing(present.hdop, previous.hdop);
  StoreMissing(present.satellites, previous.satellites);
  return present;
}

void FixReader::Forget() {
  previous = fix;
  fix = Fix();
  time.clear();
  hasRmc = false;
  hasGga = false;
  isDelivered = false;
}

}  // namespace host
