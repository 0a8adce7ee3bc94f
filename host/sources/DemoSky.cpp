#include "sources/DemoSky.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace host {

namespace {

/// Place at the start of the drive, in degrees, and its slow change.
struct Orbit {
  int number;
  double elevation;
  double azimuth;
  double elevationPerHour;
  double azimuthPerHour;
};

constexpr std::array<Orbit, DemoSky::SATELLITES> ORBITS = {{
    {2, 12, 48, 9, 4},
    {5, 34, 96, 14, -9},
    {7, 61, 171, -11, 16},
    {9, 23, 318, 6, 5},
    {13, 78, 262, -13, 21},
    {15, 41, 222, 12, -7},
    {18, 18, 141, -7, 3},
    {20, 55, 62, 10, 11},
    {24, 9, 276, 5, -4},
    {27, 47, 297, -12, -8},
    {29, 67, 18, 8, 19},
    {30, 28, 195, -10, 6},
}};

constexpr double SECONDS_PER_HOUR = 3600;

/// A number from -1 to 1 that looks random; the same arguments give the same number.
double Noise(std::uint64_t a, std::uint64_t b) {
  std::uint64_t x = a * 0x9E3779B97F4A7C15ULL + b * 0xC2B2AE3D27D4EB4FULL + 1;
  x ^= x >> 31;
  x *= 0xBF58476D1CE4E5B9ULL;
  x ^= x >> 29;
  return static_cast<double>(x >> 11) / 4503599627370496.0 - 1;
}

/// Degrees above the horizon; swings between the lowest and the highest elevation of this sky.
double ElevationAt(const Orbit& orbit, std::int64_t second) {
  constexpr double LOWEST = 5;
  constexpr double SPAN = 80;
  const double way = orbit.elevation - LOWEST +
                     orbit.elevationPerHour * static_cast<double>(second) / SECONDS_PER_HOUR;
  return LOWEST + std::abs(std::remainder(way, 2 * SPAN));
}

/// Degrees from north.
double AzimuthAt(const Orbit& orbit, std::int64_t second) {
  constexpr double TEN_TURNS = 3600;
  const double hours = static_cast<double>(second) / SECONDS_PER_HOUR;
  return std::fmod(orbit.azimuth + hours * orbit.azimuthPerHour + TEN_TURNS, 360);
}

/// Signal in dB, stronger for high satellites. Houses and trees hide low ones.
int SignalOf(std::size_t satellite, double elevation, const DemoState& state) {
  if (!state.hasFix || elevation < 65 * (1 - state.sky)) {
    return 0;
  }
  const double sine = std::sin(elevation * std::numbers::pi / 180);
  const double wobble = 2.5 * Noise(satellite, static_cast<std::uint64_t>(state.second) / 3);
  return static_cast<int>(std::lround(29 + 17 * sine + wobble));
}

}  // namespace

DemoSky::DemoSky(const DemoState& state) {
  for (std::size_t i = 0; i < SATELLITES; ++i) {
    const double elevation = ElevationAt(ORBITS[i], state.second);
    const double azimuth = AzimuthAt(ORBITS[i], state.second);
    satellites[i] = {ORBITS[i].number, static_cast<int>(std::lround(elevation)),
                     static_cast<int>(std::lround(azimuth) % 360), SignalOf(i, elevation, state)};
  }
  constexpr std::uint64_t HDOP_NOISE = 77;
  hdop = 8.2 / std::max(CountReceived(), 4) +
         0.06 * Noise(HDOP_NOISE, static_cast<std::uint64_t>(state.second) / 5);
}

int DemoSky::CountReceived() const {
  return static_cast<int>(std::count_if(satellites.begin(), satellites.end(),
                                        [](const DemoSatellite& each) { return each.signal > 0; }));
}

double DemoSky::GetVdop() const {
  return hdop * 1.45;
}

double DemoSky::GetPdop() const {
  return std::hypot(hdop, GetVdop());
}

}  // namespace host
