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

  /// All values are missing; `utcTime` is the device's local clock.
  FixRecord();
  virtual ~FixRecord() = default;
  FixRecord(const FixRecord&) = delete;
  FixRecord& operator=(const FixRecord&) = delete;

  /// Takes one NMEA sentence, which begins with "$" and ends before the carriage return. Returns 1
  /// after a "$GPRMC" sentence, which completes an epoch and adds a track point; 0 after all
  /// others, known, unknown or malformed.
  int ParseSentence(const char* sentence);

  /// Takes one position of the platform's GPS API, or null when there is none.
  void ApplyGpsPosition(const GPS_POSITION* position);

  /// Null for an index above 11 (a negative one counts as above).
  const SatelliteInfo* GetSatellite(unsigned index) const;
  /// The satellites in view, in order of first appearance; free slots have no PRN.
  const std::array<SatelliteInfo, SATELLITE_COUNT>& GetSatellites() const { return satellites; }
  /// Satellites that the position was computed from; MISSING_VALUE when the receiver did not say.
  int GetSatellitesUsed() const { return satellitesUsed; }
  /// Whether the source called the last fix valid.
  bool IsFixValid() const { return fixValid != 0; }

  /// ddmm.mmmm, negative = South.
  float GetLatitude() const { return latitude; }
  /// dddmm.mmmm, negative = West.
  float GetLongitude() const { return longitude; }
  /// Metres above sea level.
  float GetAltitude() const { return altitude; }
  /// Degrees from true north.
  float GetCourse() const { return course; }
  float GetSpeedKnots() const { return speedKnots; }
  float GetSpeedKmh() const { return speedKmh; }
  float GetPdop() const { return pdop; }
  float GetHdop() const { return hdop; }
  float GetVdop() const { return vdop; }

  const SYSTEMTIME& GetUtcTime() const { return utcTime; }
  /// The same moment in the device's time zone; zero until the first update.
  const SYSTEMTIME& GetLocalTime() const { return localTime; }
  /// File time of GetLocalTime; 0 when that is no date.
  std::int64_t GetLocalFileTime() const { return localFileTime; }

  /// The route so far.
  const TrackStore& GetTrack() const { return track; }
  TrackStore& GetTrack() { return track; }
  int GetPointCount() const { return track.GetPointCount(); }
  const TrackPoint* GetPoint(int index) const { return track.GetPoint(index); }

 protected:
  // The values, in the order of the record. Only the two sources write them.

  /// Fields of the last sentence; those beyond its last one keep the text of longer sentences.
  std::array<std::array<char, FIELD_SIZE>, FIELD_COUNT> fields = {};
  float speedKnots = MISSING_FLOAT;
  TrackStore track;
  float altitude = MISSING_FLOAT;
  float longitude = MISSING_FLOAT;
  float latitude = MISSING_FLOAT;
  float course = MISSING_FLOAT;
  float speedKmh = MISSING_FLOAT;
  /// Unused.
  std::array<float, 9> reserved = {MISSING_FLOAT, MISSING_FLOAT, MISSING_FLOAT, MISSING_FLOAT,
                                   MISSING_FLOAT, MISSING_FLOAT, MISSING_FLOAT};
  SYSTEMTIME utcTime = {};
  SYSTEMTIME localTime = {};
  float pdop = MISSING_FLOAT;
  float hdop = MISSING_FLOAT;
  float vdop = MISSING_FLOAT;
  std::int32_t satellitesUsed = 0;
  /// Number at the start of the field behind the altitude of a GGA sentence; the unit "M" gives 0.
  float ggaField10 = MISSING_FLOAT;
  std::uint8_t fixValid = 0;
  std::array<SatelliteInfo, SATELLITE_COUNT> satellites;

  void SetLocalTime(const SYSTEMTIME& local);

 private:
  struct SentenceKind;

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

  /// Kept because half of the sensors ask for it at every update.
  std::int64_t localFileTime = 0;
};

}  // namespace ferolin
