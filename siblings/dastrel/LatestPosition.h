#pragma once

#include <gpsapi.h>

#include <array>
#include <chrono>
#include <optional>

#include "dastrel/GpsdReport.h"

namespace dastrel {

/// The newest data of gpsd as the device's position record. Not synchronised.
class LatestPosition {
 public:
  using TimePoint = std::chrono::steady_clock::time_point;

  /// Lifetime of a position after its report; satellites and dilutions of precision live longer, as
  /// many receivers report them only every five seconds.
  static constexpr std::chrono::seconds FIX_LIFETIME{5};
  static constexpr std::chrono::seconds SKY_LIFETIME{15};

  /// Takes over a position or a sky view. Ignores other reports.
  void Update(const GpsdReport& report, TimePoint now);

  /// Forgets everything; for a lost connection.
  void Clear() { *this = {}; }

  /// The record as of `now`. Only known values have their bit in dwValidFields.
  GPS_POSITION At(TimePoint now) const;

 private:
  struct Dilutions {
    double pdop;
    double hdop;
    double vdop;
  };

  struct Sky {
    int usedCount = 0;
    std::size_t listed = 0;
    std::array<GpsdSatellite, GPS_MAX_SATELLITES> satellites = {};
  };

  template <typename T>
  struct Dated {
    T value;
    TimePoint time;
  };

  static Sky SkyOf(const GpsdSky& view);
  static void WriteFix(const GpsdFix& fix, GPS_POSITION& record);
  static void WriteDilutions(const Dilutions& dilutions, GPS_POSITION& record);
  static void WriteSky(const Sky& sky, GPS_POSITION& record);

  std::optional<Dated<GpsdFix>> fix;
  std::optional<Dated<Dilutions>> dilutions;
  std::optional<Dated<Sky>> sky;
};

}  // namespace dastrel
