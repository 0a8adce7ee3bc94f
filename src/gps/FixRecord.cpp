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
  SetLocalTime(LocalFromUtc(utc));
}

void FixRecord::SetDeviceTime() {
  SetLocalTime(DeviceTime());
  utcTime = UtcFromLocal(localTime);
}

void FixRecord::SetLocalTime(const SYSTEMTIME& local) {
  localTime = local;
  localFileTime = FileTimeOf(local);
}

void FixRecord::DeriveSpeedKmh() {
  speedKmh = IsMissing(speedKnots) ? MISSING_FLOAT : speedKnots * KMH_PER_KNOT;
}

void FixRecord::AppendTrackPoint() {
  track.Append({altitude, longitude, latitude, course, speedKmh, localTime});
}

}  // namespace ferolin
