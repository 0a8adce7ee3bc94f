#include "engine/Figures.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace host {

namespace {

/// What the engine writes for a missing value.
constexpr double MISSING = -9999;
constexpr double SECONDS_PER_HOUR = 3600;
constexpr double MS_PER_SECOND = 1000;

constexpr std::array ACCELERATIONS = {
    FEROLIN_SENSOR_ACCEL_10,  FEROLIN_SENSOR_ACCEL_20,  FEROLIN_SENSOR_ACCEL_30,
    FEROLIN_SENSOR_ACCEL_40,  FEROLIN_SENSOR_ACCEL_50,  FEROLIN_SENSOR_ACCEL_60,
    FEROLIN_SENSOR_ACCEL_70,  FEROLIN_SENSOR_ACCEL_80,  FEROLIN_SENSOR_ACCEL_90,
    FEROLIN_SENSOR_ACCEL_100, FEROLIN_SENSOR_ACCEL_120, FEROLIN_SENSOR_ACCEL_150,
    FEROLIN_SENSOR_ACCEL_200,
};
constexpr std::array FASTEST = {
    FEROLIN_SENSOR_FASTEST_100,  FEROLIN_SENSOR_FASTEST_402,   FEROLIN_SENSOR_FASTEST_500,
    FEROLIN_SENSOR_FASTEST_1000, FEROLIN_SENSOR_FASTEST_10000,
};

std::optional<double> ParseNumber(std::string_view text) {
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  const bool isNumber = result.ec == std::errc() && result.ptr == end && value != MISSING;
  return isNumber ? std::optional(value) : std::nullopt;
}

template <class Sensors>
std::vector<BestTime> ReadBestTimes(const EngineLibrary& engine, const Sensors& sensors,
                                    double unitsPerSecond) {
  std::vector<BestTime> times;
  times.reserve(sensors.size());
  for (const int sensor : sensors) {
    times.push_back(ParseBestTime(engine.GetSensorState(sensor), unitsPerSecond));
  }
  return times;
}

}  // namespace

std::optional<double> ParseState(const std::string& state) {
  return ParseNumber(state);
}

StatePair ParseStatePair(std::string_view state) {
  const std::size_t semicolon = std::min(state.find(';'), state.size());
  return {ParseNumber(state.substr(0, semicolon)).value_or(0),
          ParseNumber(state.substr(std::min(semicolon + 1, state.size()))).value_or(0)};
}

BestTime ParseBestTime(const std::string& state, double unitsPerSecond) {
  const auto [target, time] = ParseStatePair(state);
  return {target, time > 0 ? std::optional(time / unitsPerSecond) : std::nullopt};
}

std::optional<double> ParseAverage(const std::string& state) {
  const auto [km, seconds] = ParseStatePair(state);
  return seconds > 0 ? std::optional(km / (seconds / SECONDS_PER_HOUR)) : std::nullopt;
}

Figures ReadFigures(const EngineLibrary& engine) {
  Figures figures;
  figures.distanceKm = ParseState(engine.GetSensorState(FEROLIN_SENSOR_DISTANCE)).value_or(0);
  figures.elapsedSeconds = static_cast<std::int64_t>(
      ParseState(engine.GetSensorState(FEROLIN_SENSOR_ELAPSED)).value_or(0));
  figures.averageKmh = ParseAverage(engine.GetSensorState(FEROLIN_SENSOR_AVERAGE_SPEED));
  figures.highestKmh = ParseState(engine.GetSensorState(FEROLIN_SENSOR_MAX_SPEED));
  figures.accelerations = ReadBestTimes(engine, ACCELERATIONS, 1);
  figures.fastest = ReadBestTimes(engine, FASTEST, MS_PER_SECOND);
  return figures;
}

}  // namespace host
