#pragma once

#include <cstdint>

#include "base/MissingValue.h"

namespace ferolin {

/// One satellite in view. Each number is MISSING_VALUE when unknown; a missing `prn` marks a free
/// slot.
class SatelliteInfo {
 public:
  SatelliteInfo() = default;
  SatelliteInfo(int newPrn, int newElevation, int newAzimuth, int newSnr)
      : prn(newPrn), elevation(newElevation), azimuth(newAzimuth), snr(newSnr) {}
  virtual ~SatelliteInfo() = default;
  SatelliteInfo(const SatelliteInfo&) = default;
  SatelliteInfo& operator=(const SatelliteInfo&) = default;

  std::int32_t prn = MISSING_VALUE;
  std::int32_t elevation = MISSING_VALUE;  ///< degrees, 0 to 90
  std::int32_t azimuth = MISSING_VALUE;    ///< degrees, 0 to 359
  std::int32_t snr = MISSING_VALUE;        ///< dB
};

}  // namespace ferolin
