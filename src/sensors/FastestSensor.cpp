#include "sensors/FastestSensor.h"

#include <cmath>

#include "base/DeviceTime.h"
#include "base/Number.h"
#include "base/Saturate.h"
#include "gps/FixRecord.h"
#include "sensors/LocalizedText.h"
#include "sensors/StatePair.h"
#include "sensors/TripText.h"

namespace ferolin {

namespace {

constexpr int NOT_FOUND = -1;

std::string NameForDistance(float targetMetres) {
  return Format("%s %g%s", GetText(Word::FASTEST), targetMetres, GetText(Word::METRE));
}

}  // namespace

FastestSensor::FastestSensor(float targetMetres)
    : SaveableSensor(NameForDistance(targetMetres)), targetDistance(targetMetres) {}

void FastestSensor::GetRegistryString(char* out, int) const {
  PrintState(out, "%g;%i", targetDistance, static_cast<int>(bestTime));
}

int FastestSensor::SetRegistryString(const char* text) {
  const StatePair saved(text);
  const float savedTarget = static_cast<float>(ParseDouble(saved.first.c_str()));
  const std::int64_t savedTime = ParseInt64(saved.second.c_str());
  if (!(savedTarget > 0 && savedTime > 0)) {
    return 0;
  }
  targetDistance = savedTarget;
  SetName(NameForDistance(targetDistance));
  bestTime = savedTime;
  ShowBest();
  return 1;
}

void FastestSensor::Update(const FixRecord& fix) {
  constexpr double METRES_PER_SECOND_PER_KMH = 0.2777777851363761;
  if (!FixCounts(fix)) {
    BreakRun();
    return;
  }
  const std::int64_t time = fix.GetLocalFileTime();
  if (fix.GetSpeedKmh() == 0.0F) {
    BreakRun();
  }
  if (!IsMissing(lastSpeed) && lastTime != 0 && time >= lastTime) {
    const std::int64_t stepMs = (time - lastTime) / FILE_TIME_PER_MILLISECOND;
    const std::int64_t wholeSeconds = stepMs / 1000;
    const float meanSpeed = (lastSpeed + fix.GetSpeedKmh()) * 0.5F;
    const double metres = static_cast<double>(meanSpeed) * static_cast<double>(wholeSeconds) *
                          METRES_PER_SECOND_PER_KMH;
    AddSegment(static_cast<float>(metres), stepMs);
  }
  lastSpeed = fix.GetSpeedKmh();
  lastTime = time;
}

void FastestSensor::Reset() {
  lastTime = 0;
  bestTime = 0;
  BreakRun();
}

void FastestSensor::BreakRun() {
  lastSpeed = MISSING_FLOAT;
  ForgetSegments();
}

void FastestSensor::ForgetSegments() {
  count = 0;
  totalLength = 0;
}

void FastestSensor::AddSegment(float metres, std::int64_t milliseconds) {
  float sum = metres;
  std::int64_t time = 0;
  const int start = FindStart(metres, sum, time);
  if (start != NOT_FOUND) {
    RecordRun(start, sum, time);
    ForgetSegments();
  } else if (count >= MAX_SEGMENTS) {
    ForgetSegments();
    return;
  }
  totalLength += std::fabs(metres);
  segments.length[static_cast<std::size_t>(count)] = metres;
  segments.duration[static_cast<std::size_t>(count)] = milliseconds;
  ++count;
}

/// True only when no run can be as long as the target. Sums of this many numbers of single precision
/// are less than a thousandth off, in whatever order they are added.
bool FastestSensor::IsOutOfReach(float newestMetres) const {
  constexpr float LONGEST_SURELY_SHORTER = 0.999F;
  return totalLength + std::fabs(newestMetres) < targetDistance * LONGEST_SURELY_SHORTER;
}

/// Walks back from the newest segment until the run, the segment to come included, is as long as
/// the target. Returns the segment in which the run starts; `sum` is then the length in metres, and
/// `time` the duration in milliseconds of the stored segments from there on.
int FastestSensor::FindStart(float newestMetres, float& sum, std::int64_t& time) const {
  if (IsOutOfReach(newestMetres)) {
    return NOT_FOUND;
  }
  sum = newestMetres;
  time = 0;
  for (int index = count - 1; index >= 0; --index) {
    sum += segments.length[static_cast<std::size_t>(index)];
    time += segments.duration[static_cast<std::size_t>(index)];
    if (sum >= targetDistance) {
      return index;
    }
  }
  return NOT_FOUND;
}

/// `time` holds the whole of the first segment but not the segment to come, which is equal for
/// fixes at an even pace.
void FastestSensor::RecordRun(int start, float sum, std::int64_t time) {
  const float length = segments.length[static_cast<std::size_t>(start)];
  const std::int64_t duration = segments.duration[static_cast<std::size_t>(start)];
  if (length == 0.0F) {
    return;
  }
  const float before = sum - length;
  const float fraction = (targetDistance - before) / length;
  const float share = fraction * static_cast<float>(duration);
  const std::int64_t total =
      SaturatedSum(time, Saturated<std::int64_t>(static_cast<double>(share)));
  if (total > 0 && (bestTime <= 0 || total < bestTime)) {
    bestTime = total;
    ShowBest();
  }
}

void FastestSensor::ShowBest() {
  SetText("%s", TimeText(static_cast<double>(bestTime) * 0.001));
}

}  // namespace ferolin
