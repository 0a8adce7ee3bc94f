// The GPS API side of the fix record.

#include <algorithm>
#include <iterator>

#include "base/Saturate.h"
#include "gps/FixRecord.h"

namespace ferolin {

namespace {

/// Decimal degrees as degrees x 100 + minutes. A negative value stays negative through the
/// truncation.
float NmeaFromDegrees(double degrees) {
  const int whole = Saturated<int>(degrees);
  const double minutes = (degrees - whole) * 60.0;
  return static_cast<float>(minutes + static_cast<double>(static_cast<float>(whole) * 100.0F));
}

}  // namespace

void FixRecord::ApplyGpsPosition(const GPS_POSITION* position) {
  if (position != nullptr && position->FixType != GPS_FIX_UNKNOWN) {
    ApplyFix(*position);
    return;
  }
  SetDeviceTime();
  ForgetPosition();
  if (position != nullptr) {
    fixValid = 0;
    satellites.fill(SatelliteInfo());
  }
}

void FixRecord::ApplyFix(const GPS_POSITION& position) {
  fixValid = 1;
  if (position.dwValidFields & GPS_VALID_UTC_TIME) {
    SetUtcTime(position.stUTCTime);
  }
  if (position.dwValidFields & GPS_VALID_LATITUDE) {
    latitude = NmeaFromDegrees(position.dblLatitude);
  }
  if (position.dwValidFields & GPS_VALID_LONGITUDE) {
    longitude = NmeaFromDegrees(position.dblLongitude);
  }
  ApplyMotion(position);
  ApplyPrecision(position);
  ApplySatellites(position);
  if (speedKnots < 0) {
    speedKnots = 0;
    speedKmh = 0;
  }
  AppendTrackPoint();
}

void FixRecord::ApplyMotion(const GPS_POSITION& position) {
  if (position.dwValidFields & GPS_VALID_SPEED) {
    speedKnots = position.flSpeed;
  }
  DeriveSpeedKmh();
  if (position.dwValidFields & GPS_VALID_HEADING) {
    course = position.flHeading;
  }
  if (position.dwValidFields & GPS_VALID_ALTITUDE_WRT_SEA_LEVEL) {
    altitude = position.flAltitudeWRTSeaLevel;
  }
}

void FixRecord::ApplyPrecision(const GPS_POSITION& position) {
  if (position.dwValidFields & GPS_VALID_POSITION_DILUTION_OF_PRECISION) {
    pdop = position.flPositionDilutionOfPrecision;
  }
  if (position.dwValidFields & GPS_VALID_HORIZONTAL_DILUTION_OF_PRECISION) {
    hdop = position.flHorizontalDilutionOfPrecision;
  }
  if (position.dwValidFields & GPS_VALID_VERTICAL_DILUTION_OF_PRECISION) {
    vdop = position.flVerticalDilutionOfPrecision;
  }
  if (position.dwValidFields & GPS_VALID_SATELLITE_COUNT) {
    satellitesUsed = static_cast<std::int32_t>(position.dwSatelliteCount);
  }
}

/// All slots follow the platform's order; entries without a PRN are free.
void FixRecord::ApplySatellites(const GPS_POSITION& position) {
  if (position.dwSatellitesInView == 0) {
    return;
  }
  for (std::size_t index = 0; index < satellites.size(); ++index) {
    const int prn = static_cast<int>(position.rgdwSatellitesInViewPRNs[index]);
    satellites[index] =
        prn == 0 ? SatelliteInfo()
                 : SatelliteInfo(
                       prn, static_cast<int>(position.rgdwSatellitesInViewElevation[index]),
                       static_cast<int>(position.rgdwSatellitesInViewAzimuth[index]),
                       static_cast<int>(position.rgdwSatellitesInViewSignalToNoiseRatio[index]));
  }
}

void FixRecord::ForgetPosition() {
  for (float* value : {&altitude, &longitude, &latitude, &speedKmh, &speedKnots, &pdop, &hdop,
                       &vdop, &ggaField10}) {
    *value = MISSING_FLOAT;
  }
}

}  // namespace ferolin
