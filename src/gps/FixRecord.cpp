#include "gps/FixRecord.h"

#include "base/DeviceTime.h"

namespace ferolin {

namespace {

constexpr float KMH_PER_KNOT = 1.852F;

}  // namespace

FixRecord::FixRecord() : utcTime(DeviceTime()) {}

const SatelliteInfo* FixRecord::GetSatellite(unsigned index) const {
  return index < satellites.size() ? &satellites[index] : nullptr;
}

void FixRecord::SetUtcTime(const SYSTEMTIME& utc) {
  utcTime = utc;
  localTime = LocalFromUtc(utc);
}

void FixRecord::SetDeviceTime() {
  localTime = DeviceTime();
  utcTime = UtcFromLocal(localTime);
}

void FixRecord::DeriveSpeedKmh() {
  speedKmh = IsMissing(speedKnots) ? MISSING_FLOAT : speedKnots * KMH_PER_KNOT;
}

void FixRecord::AppendTrackPoint() {
  track.Append({altitude, longitude, latitude, course, speedKmh, localTime});
}

}  // namespace ferolin
