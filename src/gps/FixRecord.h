#pragma once

#include <gpsapi.h>
#include <windows.h>

#include <array>
#include <cstdint>
#include <string_view>

#include "base/MissingValue.h"
#include "gps/SatelliteInfo.h"
#include "track/TrackStore.h"

namespace ferolin {

/// The current GPS state: the last known position, motion, times, precision and satellites, and the
/// route so far.
///
/// Filled from one of two sources, both on the reader thread: NMEA sentences (`ParseSentence`) or
/// the platform's GPS API (`ApplyGpsPosition`). Everybody else only reads, under the engine's data
/// lock. A number that is not known is MISSING_VALUE. Coordinates are kept as receivers send them,
/// degrees x 100 + minutes, in single precision.
class FixRecord {
 public:
  static constexpr int FIELD_COUNT = 40;
  static constexpr int FIELD_SIZE = 100;
  static constexpr int SATELLITE_COUNT = 12;

  /// Everything missing; `utcTime` is the device's clock.
  FixRecord();
  virtual ~FixRecord() = default;
  FixRecord(const FixRecord&) = delete;
  FixRecord& operator=(const FixRecord&) = delete;

  /// Takes one NMEA sentence, which begins with "$" and ends before the carriage return. Returns 1
  /// after a "$GPRMC" sentence, which completes an epoch and adds a track point; 0 after all
  /// others, known, unknown or malformed.
  int ParseSentence(const char* sentence);

  /// Takes one position of the platform's GPS API, or null when there is none. Always returns 1.
  int ApplyGpsPosition(const GPS_POSITION* position);

  /// Null for an index above 11 (a negative one counts as above).
  const SatelliteInfo* GetSatellite(unsigned index) const;

  int GetPointCount() const { return track.GetPointCount(); }
  const TrackPoint* GetPoint(int index) const { return track.GetPoint(index); }

 private:
  using FieldBuffers = std::array<std::array<char, FIELD_SIZE>, FIELD_COUNT>;
  struct SentenceKind;

  /// Scratch of the parser: the fields of the last sentence. Fields beyond those of a sentence keep
  /// older text.
  FieldBuffers fields = {};

 public:
  float speedKnots = MISSING_FLOAT;
  TrackStore track;
  float altitude = MISSING_FLOAT;   ///< metres above sea level
  float longitude = MISSING_FLOAT;  ///< dddmm.mmmm, negative = West
  float latitude = MISSING_FLOAT;   ///< ddmm.mmmm, negative = South
  float course = MISSING_FLOAT;     ///< degrees from true north
  float speedKmh = MISSING_FLOAT;
  /// Part of the record's layout; nothing reads or writes it.
  std::array<float, 9> reserved = {MISSING_FLOAT, MISSING_FLOAT, MISSING_FLOAT, MISSING_FLOAT,
                                   MISSING_FLOAT, MISSING_FLOAT, MISSING_FLOAT};
  SYSTEMTIME utcTime = {};
  SYSTEMTIME localTime = {};  ///< zero until the first update
  float pdop = MISSING_FLOAT;
  float hdop = MISSING_FLOAT;
  float vdop = MISSING_FLOAT;
  std::int32_t satellitesUsed = 0;
  /// What the field behind the altitude of the last GGA sentence reads as a number: the unit "M"
  /// gives 0.
  float ggaField10 = MISSING_FLOAT;
  std::uint8_t fixValid = 0;
  std::array<SatelliteInfo, SATELLITE_COUNT> satellites;

 private:
  // NMEA.
  int SplitFields(const char* sentence);
  void ParseRmc();
  void ParseGga();
  void ParseVtg();
  void ParseGll();
  void ParseGsa();
  void ParseGsv();
  void ParseNmeaTime(std::string_view time, std::string_view date);
  void SetLatitude(int valueField, int hemisphereField);
  void SetLongitude(int valueField, int hemisphereField);
  void SetCourse(int field);
  void SetSpeed(int knotsField);
  void UpdateSatellite(int firstField);
  SatelliteInfo* FindSlot(int prn);
  const char* Field(int index) const { return fields[static_cast<std::size_t>(index)].data(); }

  // GPS API.
  void ApplyFix(const GPS_POSITION& position);
  void ApplyMotion(const GPS_POSITION& position);
  void ApplyPrecision(const GPS_POSITION& position);
  void ApplySatellites(const GPS_POSITION& position);
  void ForgetPosition();

  void SetUtcTime(const SYSTEMTIME& utc);
  void SetDeviceTime();
  void DeriveSpeedKmh();
  void AppendTrackPoint();
};

}  // namespace ferolin
