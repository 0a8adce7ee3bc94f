#pragma once

#include <gps.h>
#include <gpsapi.h>

#include <array>
#include <chrono>
#include <optional>

namespace dastrel {

/// The newest of what gpsd told, given out as the device's position record. Not synchronised.
class LatestPosition {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  /// A position is believed this long after its report, satellites and dilutions of precision
  /// somewhat longer: many receivers tell those only every fifth second.
  static constexpr std::chrono::seconds FIX_LIFETIME{5};
  static constexpr std::chrono::seconds SKY_LIFETIME{15};

  /// Takes in the report just unpacked into `data`, whose `set` was 0 before: a position (TPV), a
  /// sky view (SKY) or anything else, which is ignored.
  void Update(const gps_data_t& data, TimePoint now);

  /// Forgets everything, as when gpsd is gone.
  void Clear() { *this = {}; }

  /// The record as of `now`. Only what is known has its bit in dwValidFields.
  GPS_POSITION At(TimePoint now) const;

 private:
  struct Sky {
    int usedCount = 0;
    int listed = 0;
    std::array<satellite_t, GPS_MAX_SATELLITES> satellites = {};
  };

  template <typename T>
  struct Dated {
    T value;
    TimePoint time;
  };

  static Sky SkyOf(const gps_data_t& data);
  static void WriteFix(const gps_fix_t& fix, GPS_POSITION& record);
  static void WriteDilutions(const dop_t& dilutions, GPS_POSITION& record);
  static void WriteSky(const Sky& sky, GPS_POSITION& record);

  std::optional<Dated<gps_fix_t>> fix;
  std::optional<Dated<dop_t>> dilutions;
  std::optional<Dated<Sky>> sky;
};

}  // namespace dastrel
