// The fix record's parser of NMEA sentences. Checksums are not verified: their digits are one more
// field, and unused.

#include <windows.h>

#include <algorithm>
#include <cstring>

#include "base/Number.h"
#include "gps/FixRecord.h"

namespace ferolin {

namespace {

float ParseFloatField(const char* text) {
  return *text == '\0' ? MISSING_FLOAT : static_cast<float>(ParseDouble(text));
}

int ParseIntField(const char* text) {
  return *text == '\0' ? MISSING_VALUE : ParseInt(text);
}

/// A coordinate as received, negative in the southern or western hemisphere. A missing one stays
/// missing.
float ParseCoordinate(const char* text, const char* hemisphere, const char* negativeHemisphere) {
  const float value = ParseFloatField(text);
  return !IsMissing(value) && std::strcmp(hemisphere, negativeHemisphere) == 0 ? -value : value;
}

/// The two characters at `position` as a number.
int ParsePair(std::string_view digits, std::size_t position) {
  const char pair[] = {digits[position], digits[position + 1], '\0'};
  return ParseInt(pair);
}

constexpr std::size_t NAME_SIZE = sizeof "$GPRMC";

constexpr std::size_t TIME_LENGTH = 6;  // hhmmss
constexpr std::size_t DATE_LENGTH = 6;  // ddmmyy
constexpr int FIRST_YEAR_OF_1900S = 90;

constexpr int FIRST_SATELLITE_FIELD = 4;
constexpr int FIELDS_PER_SATELLITE = 4;
constexpr int SATELLITES_PER_SENTENCE = 4;

}  // namespace

struct FixRecord::SentenceKind {
  char name[NAME_SIZE];
  int minimumFields;
  void (FixRecord::*parse)();
  int result;
};

int FixRecord::ParseSentence(const char* sentence) {
  static constexpr SentenceKind KINDS[] = {
      {"$GPRMC", 10, &FixRecord::ParseRmc, 1}, {"$GPGGA", 11, &FixRecord::ParseGga, 0},
      {"$GPVTG", 4, &FixRecord::ParseVtg, 0},  {"$GPGLL", 5, &FixRecord::ParseGll, 0},
      {"$GPGSA", 18, &FixRecord::ParseGsa, 0}, {"$GPGSV", 4, &FixRecord::ParseGsv, 0},
  };
  if (*sentence != '$') {
    return 0;
  }
  const int count = SplitFields(sentence);
  for (const SentenceKind& kind : KINDS) {
    if (std::memcmp(Field(0), kind.name, NAME_SIZE) == 0) {
      if (count < kind.minimumFields) {
        return 0;
      }
      (this->*kind.parse)();
      return kind.result;
    }
  }
  return 0;
}

/// Cuts the sentence at each "," and "*". Returns the number of fields that one of these ended; the
/// text behind the last one is kept in the next buffer, but not counted.
int FixRecord::SplitFields(const char* sentence) {
  for (int count = 0; count < FIELD_COUNT; ++count) {
    char* end = fields[static_cast<std::size_t>(count)].data();
    const char* const last = end + FIELD_SIZE - 1;
    for (; *sentence != ',' && *sentence != '*' && *sentence != '\0'; ++sentence) {
      if (end != last) {
        *end++ = *sentence;
      }
    }
    *end = '\0';
    if (*sentence == '\0') {
      return count;
    }
    ++sentence;
  }
  return FIELD_COUNT;
}

/// $GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W*6A
void FixRecord::ParseRmc() {
  fixValid = std::strcmp(Field(2), "A") == 0 ? 1 : 0;
  ParseNmeaTime(Field(1), Field(9));
  SetLatitude(3, 4);
  SetLongitude(5, 6);
  SetSpeed(7);
  SetCourse(8);
  if (fixValid != 0 && speedKmh < 0) {
    // Some receivers leave the speed empty while they stand.
    speedKnots = 0;
    speedKmh = 0;
  }
  AppendTrackPoint();
}

/// $GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*47
void FixRecord::ParseGga() {
  SetLatitude(2, 3);
  SetLongitude(4, 5);
  satellitesUsed = ParseIntField(Field(7));
  hdop = ParseFloatField(Field(8));
  altitude = ParseFloatField(Field(9));
  ggaField10 = ParseFloatField(Field(10));
}

/// $GPVTG,084.4,077.8,022.4,041.5*43
void FixRecord::ParseVtg() {
  SetCourse(1);
  SetSpeed(3);
}

/// $GPGLL,4807.038,N,01131.000,E,123519,A*25
void FixRecord::ParseGll() {
  SetLatitude(1, 2);
  SetLongitude(3, 4);
}

/// $GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1*39
void FixRecord::ParseGsa() {
  pdop = ParseFloatField(Field(15));
  hdop = ParseFloatField(Field(16));
  vdop = ParseFloatField(Field(17));
}

/// $GPGSV,2,1,08,01,40,083,46,02,17,308,41,12,07,344,39,14,22,228,45*75
void FixRecord::ParseGsv() {
  for (int satellite = 0; satellite < SATELLITES_PER_SENTENCE; ++satellite) {
    UpdateSatellite(FIRST_SATELLITE_FIELD + satellite * FIELDS_PER_SATELLITE);
  }
}

/// Only whole seconds and a full date are taken from the receiver; for all else the device's clock
/// stands in.
void FixRecord::ParseNmeaTime(std::string_view time, std::string_view date) {
  if (time.size() != TIME_LENGTH || date.size() != DATE_LENGTH) {
    SetDeviceTime();
    return;
  }
  SYSTEMTIME utc = utcTime;
  const int year = ParsePair(date, 4);
  utc.wYear = static_cast<WORD>(year + (year < FIRST_YEAR_OF_1900S ? 2000 : 1900));
  utc.wMonth = static_cast<WORD>(ParsePair(date, 2));
  utc.wDay = static_cast<WORD>(ParsePair(date, 0));
  utc.wHour = static_cast<WORD>(ParsePair(time, 0));
  utc.wMinute = static_cast<WORD>(ParsePair(time, 2));
  utc.wSecond = static_cast<WORD>(ParsePair(time, 4));
  SetUtcTime(utc);
}

void FixRecord::SetLatitude(int valueField, int hemisphereField) {
  latitude = ParseCoordinate(Field(valueField), Field(hemisphereField), "S");
}

void FixRecord::SetLongitude(int valueField, int hemisphereField) {
  longitude = ParseCoordinate(Field(valueField), Field(hemisphereField), "W");
}

/// Receivers send no course while they stand, so the last one is kept.
void FixRecord::SetCourse(int field) {
  if (*Field(field) != '\0') {
    course = ParseFloatField(Field(field));
  }
}

void FixRecord::SetSpeed(int knotsField) {
  speedKnots = ParseFloatField(Field(knotsField));
  DeriveSpeedKmh();
}

void FixRecord::UpdateSatellite(int firstField) {
  const int prn = ParseIntField(Field(firstField));
  if (prn == 0 || prn == MISSING_VALUE) {
    return;
  }
  if (SatelliteInfo* slot = FindSlot(prn)) {
    *slot =
        SatelliteInfo(prn, ParseIntField(Field(firstField + 1)),
                      ParseIntField(Field(firstField + 2)), ParseIntField(Field(firstField + 3)));
  }
}

/// The satellite's own slot, else the first free one; null when all are taken. A satellite keeps
/// its slot until the engine ends.
SatelliteInfo* FixRecord::FindSlot(int prn) {
  for (const int wanted : {prn, MISSING_VALUE}) {
    const auto slot = std::ranges::find(satellites, wanted, &SatelliteInfo::prn);
    if (slot != satellites.end()) {
      return &*slot;
    }
  }
  return nullptr;
}

}  // namespace ferolin
