#include "sensors/CurrentFixSensors.h"

#include <windows.h>

#include <cmath>

#include "base/Saturate.h"
#include "gps/FixRecord.h"
#include "sensors/LocalizedText.h"

namespace ferolin {

namespace {

int CutToInt(float value) {
  return Saturated<int>(static_cast<double>(value));
}

/// A coordinate of the form degrees x 100 + minutes, split in single precision.
struct Angle {
  explicit Angle(float coordinate) {
    const float value = std::fabs(coordinate);
    degrees = CutToInt(value * 0.01F);
    const float rest = value - static_cast<float>(degrees) * 100.0F;
    minutes = CutToInt(rest);
    seconds = CutToInt((rest - static_cast<float>(minutes)) * 60.0F);
  }

  int degrees;
  int minutes;
  int seconds;
};

/// The degree sign of code pages 1251 and 1252 is byte 0xB0.
std::string AngleText(float coordinate, const char* positive, const char* negative) {
  if (IsMissing(coordinate)) {
    return NOT_AVAILABLE;
  }
  const Angle angle(coordinate);
  return Format("%i\xB0%i'%i'' %s", angle.degrees, angle.minutes, angle.seconds,
                coordinate < 0 ? negative : positive);
}

}  // namespace

void GpsStatusSensor::Update(const FixRecord& fix) {
  SetText("%s", fix.IsFixValid() ? "OK" : GetText(Word::NO_SIGNAL));
}

void SatellitesUsedSensor::Update(const FixRecord& fix) {
  SetText("%i", fix.GetSatellitesUsed() == MISSING_VALUE ? 0 : fix.GetSatellitesUsed());
}

void CurrentTimeSensor::Update(const FixRecord& fix) {
  const SYSTEMTIME& time = fix.GetLocalTime();
  SetText("%i:%02i:%02i", time.wHour, time.wMinute, time.wSecond);
}

void SpeedSensor::Update(const FixRecord& fix) {
  if (fix.IsFixValid() && !IsMissing(fix.GetSpeedKmh())) {
    SetText("%.1f %s", fix.GetSpeedKmh(), GetText(Word::KMH));
  } else {
    SetText("");
  }
}

void LatitudeSensor::Update(const FixRecord& fix) {
  SetText("%s", AngleText(fix.GetLatitude(), "NL", "SL"));
}

void LongitudeSensor::Update(const FixRecord& fix) {
  SetText("%s", AngleText(fix.GetLongitude(), "EL", "WL"));
}

void AltitudeSensor::Update(const FixRecord& fix) {
  if (IsMissing(fix.GetAltitude())) {
    SetText(NOT_AVAILABLE);
  } else {
    SetText("%.1f %s", fix.GetAltitude(), GetText(Word::METRE));
  }
}

void AzimuthSensor::Update(const FixRecord& fix) {
  if (IsMissing(fix.GetCourse())) {
    SetText(NOT_AVAILABLE);
  } else {
    SetText("%.0f", fix.GetCourse());
  }
}

void DopSensor::Update(const FixRecord& fix) {
  const float dop = (fix.*getDop)();
  if (IsMissing(dop)) {
    SetText(NOT_AVAILABLE);
  } else {
    SetText("%.1f", dop);
  }
}

}  // namespace ferolin
