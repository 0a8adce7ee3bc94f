// The satellites over the simulated drive.
#pragma once

#include <array>
#include <cstddef>

#include "sources/DemoState.h"

namespace host {

/// As a receiver reports it.
struct DemoSatellite {
  int number = 0;
  int elevation = 0;  // degrees above the horizon
  int azimuth = 0;    // degrees from north, 0 to 359
  int signal = 0;     // dB; 0: not received
};

/// The sky of one moment; the same state gives the same sky.
class DemoSky {
 public:
  static constexpr std::size_t SATELLITES = 12;

  explicit DemoSky(const DemoState& state);

  const std::array<DemoSatellite, SATELLITES>& GetSatellites() const { return satellites; }

  int CountReceived() const;

  // Dilution of precision.
  double GetHdop() const { return hdop; }
  double GetVdop() const;
  double GetPdop() const;

 private:
  std::array<DemoSatellite, SATELLITES> satellites;
  double hdop = 0;
};

}  // namespace host
