#pragma once

#include <gps.h>
#include <gpsapi.h>

#include <array>
#include <chrono>
#include <optional>

namespace dastrel {

/// The newest data of gpsd as the device's position record. Not synchronised.
class LatestPosition {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  /// Lifetime of a position after its report; satellites and dilutions of precision live longer, as
  /// many receivers report them only every five seconds.
  static constexpr std::chrono::seconds FIX_LIFETIME{5};
  static constexpr std::chrono::seconds SKY_LIFETIME{15};

  /// Takes over a report just unpacked into `data`, whose `set` was 0 before: a position (TPV) or a
  /// sky view (SKY). Ignores other reports.
  void Update(const gps_data_t& data, TimePoint now);

  /// Forgets everything; for a lost connection.
  void Clear() { *this = {}; }

  /// The record as of `now`. Only known values have their bit in dwValidFields.
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
