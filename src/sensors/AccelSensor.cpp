#include "sensors/AccelSensor.h"

#include <cmath>

#include "base/DeviceTime.h"
#include "base/Number.h"
#include "gps/FixRecord.h"
#include "sensors/LocalizedText.h"
#include "sensors/StatePair.h"
#include "sensors/TripText.h"

namespace ferolin {

namespace {

std::string NameForSpeed(float targetKmh) {
  return Format("%s 0-%g %s", GetText(Word::ACCEL), targetKmh, GetText(Word::KMH));
}

constexpr std::int64_t LONGEST_MS = 1'000'000;

}  // namespace

AccelSensor::AccelSensor(float targetKmh)
    : SaveableSensor(NameForSpeed(targetKmh)), targetSpeed(targetKmh) {}

void AccelSensor::GetRegistryString(char* out, int) const {
  PrintState(out, "%g;%g", targetSpeed, bestTime);
}

int AccelSensor::SetRegistryString(const char* text) {
  const StatePair saved(text);
  const float savedTarget = static_cast<float>(ParseDouble(saved.first.c_str()));
  const float savedTime = static_cast<float>(ParseDouble(saved.second.c_str()));
  if (!(savedTarget > 0 && savedTime > 0)) {
    return 0;
  }
  targetSpeed = savedTarget;
  SetName(NameForSpeed(targetSpeed));
  bestTime = savedTime;
  SetText("%s", TimeText(static_cast<double>(bestTime)));
  return 1;
}

void AccelSensor::Update(const FixRecord& fix) {
  if (!FixCounts(fix)) {
    return;
  }
  const std::int64_t time = fix.GetLocalFileTime();
  if (std::fabs(fix.GetSpeedKmh()) < 1.0F) {
    startTime = time;
  }
  if (CrossesTarget(fix.GetSpeedKmh())) {
    RecordRun(fix.GetSpeedKmh(), time);
  }
  lastSpeed = fix.GetSpeedKmh();
  lastTime = time;
}

void AccelSensor::Reset() {
  startTime = 0;
  lastTime = 0;
  lastSpeed = MISSING_FLOAT;
  bestTime = MISSING_FLOAT;
}

bool AccelSensor::CrossesTarget(float speedKmh) const {
  return !IsMissing(lastSpeed) && lastSpeed < targetSpeed && targetSpeed <= speedKmh &&
         lastTime > 0 && startTime > 0;
}

/// Longer steps and runs are no acceleration. A clock that went back meanwhile makes the run
/// shorter, as long as there is any time left of it.
void AccelSensor::RecordRun(float speedKmh, std::int64_t time) {
  constexpr double SECONDS_PER_MILLISECOND = 0.001F;
  const std::int64_t stepMs = (time - lastTime) / FILE_TIME_PER_MILLISECOND;
  const std::int64_t runMs = (lastTime - startTime) / FILE_TIME_PER_MILLISECOND;
  if (stepMs > LONGEST_MS || runMs > LONGEST_MS) {
    return;
  }
  const double last = static_cast<double>(lastSpeed);
  const double crossingMs = (static_cast<double>(targetSpeed) - last) *
                            static_cast<double>(stepMs) / (static_cast<double>(speedKmh) - last);
  const double seconds = (crossingMs + static_cast<double>(runMs)) * SECONDS_PER_MILLISECOND;
  if (seconds > 0 && (IsMissing(bestTime) || seconds < static_cast<double>(bestTime))) {
    bestTime = static_cast<float>(seconds);
    SetText("%s", TimeText(static_cast<double>(bestTime)));
  }
}

}  // namespace ferolin
