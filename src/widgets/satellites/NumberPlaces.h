#pragma once

#include <windows.h>

#include <array>

#include "gps/FixRecord.h"

namespace ferolin {

class SkyGeometry;

/// Places of the satellites' numbers in the sky, of which none covers a dot or another number where
/// a shift by one line can prevent it. Takes all dots first, then all numbers; each satellite once.
class NumberPlaces {
 public:
  explicit NumberPlaces(const SkyGeometry& sky) : sky(sky) {}

  /// Middle of the satellite's dot.
  POINT AddDot(const SatelliteInfo& satellite);

  /// Top left corner of the satellite's number: beside its dot, moved up or down, as little as
  /// possible, where it would cover a dot or a number added before.
  POINT AddNumber(const SatelliteInfo& satellite, SIZE text);

 private:
  bool IsFree(POINT corner, SIZE text) const;
  void Add(const RECT& box) { taken[count++] = box; }

  const SkyGeometry& sky;
  std::array<RECT, 2 * FixRecord::SATELLITE_COUNT> taken = {};
  std::size_t count = 0;
};

}  // namespace ferolin
