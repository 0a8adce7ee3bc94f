#include "run/TripGain.h"

#include <ferolin.h>

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/NumberText.h"
#include "engine/Figures.h"

namespace host {

namespace {

/// Steps of a second are added one by one: a millimetre each.
constexpr int KM_DECIMALS = 6;
constexpr int KMH_DECIMALS = 2;

std::string GetState(const KeptTrip& trip, int sensor) {
  const auto found = trip.states.find(sensor);
  return found == trip.states.end() ? std::string() : found->second;
}

std::string DescribeSum(double sum, int decimals) {
  return sum > 0 ? DescribeNumber(sum, decimals) : std::string();
}

template <class Number>
Number Gain(Number before, Number after) {
  return after >= before ? after - before : after;
}

void AddSum(KeptTrip& trip, const TripStep& step, int sensor, int decimals) {
  const auto read = [sensor](const KeptTrip& of) {
    return ParseState(GetState(of, sensor)).value_or(0);
  };
  trip.states[sensor] =
      DescribeSum(read(trip) + Gain(read(step.before), read(step.after)), decimals);
}

/// Kilometres and seconds belong together.
void AddAverage(KeptTrip& trip, const TripStep& step) {
  constexpr int SENSOR = FEROLIN_SENSOR_AVERAGE_SPEED;
  const auto read = [](const KeptTrip& of) { return ParseStatePair(GetState(of, SENSOR)); };
  const StatePair sum = read(trip);
  const StatePair before = read(step.before);
  const StatePair after = read(step.after);
  const bool isReset = after.second < before.second;
  const double km = sum.first + after.first - (isReset ? 0 : before.first);
  const double seconds = sum.second + after.second - (isReset ? 0 : before.second);
  trip.states[SENSOR] =
      seconds > 0 ? DescribeNumber(km, KM_DECIMALS) + ";" + DescribeNumber(seconds, 0) : "";
}

void LiftHighest(KeptTrip& trip, const TripStep& step) {
  constexpr int SENSOR = FEROLIN_SENSOR_MAX_SPEED;
  const auto read = [](const KeptTrip& of) { return ParseState(GetState(of, SENSOR)).value_or(0); };
  const double after = read(step.after);
  const double highest = std::max(step.highestKmh, after > read(step.before) ? after : 0);
  if (highest > read(trip)) {
    trip.states[SENSOR] = DescribeNumber(highest, KMH_DECIMALS);
  }
}

bool IsBetter(const std::string& record, const std::string& than) {
  const double time = ParseStatePair(record).second;
  const double other = ParseStatePair(than).second;
  return time > 0 && (other <= 0 || time < other);
}

void TakeRecord(KeptTrip& trip, const TripStep& step, int sensor) {
  const std::string record = GetState(step.after, sensor);
  if (IsBetter(record, GetState(step.before, sensor)) && IsBetter(record, GetState(trip, sensor))) {
    trip.states[sensor] = record;
  }
}

}  // namespace

void AddGain(KeptTrip& trip, const TripStep& step) {
  for (const auto& [sensor, state] : step.after.states) {
    switch (sensor) {
      case FEROLIN_SENSOR_DISTANCE:
        AddSum(trip, step, sensor, KM_DECIMALS);
        break;
      case FEROLIN_SENSOR_ELAPSED:
        AddSum(trip, step, sensor, 0);
        break;
      case FEROLIN_SENSOR_AVERAGE_SPEED:
        AddAverage(trip, step);
        break;
      case FEROLIN_SENSOR_MAX_SPEED:
        LiftHighest(trip, step);
        break;
      default:
        TakeRecord(trip, step, sensor);
    }
  }
  trip.moving.movingKm += Gain(step.before.moving.movingKm, step.after.moving.movingKm);
  trip.moving.movingMs += Gain(step.before.moving.movingMs, step.after.moving.movingMs);
  trip.moving.stoppedMs += Gain(step.before.moving.stoppedMs, step.after.moving.stoppedMs);
}

}  // namespace host
