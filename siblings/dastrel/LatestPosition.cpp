#include "dastrel/LatestPosition.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace dastrel {
namespace {

constexpr double KNOTS_PER_METRE_PER_SECOND = 3600.0 / 1852.0;

// Status of a fix in gpsd; the names in its header differ between releases.
constexpr int STATUS_DIFFERENTIAL = 2;
constexpr int STATUS_RTK_FIXED = 3;
constexpr int STATUS_RTK_FLOAT = 4;
constexpr int STATUS_DEAD_RECKONING = 5;
constexpr int STATUS_SURVEYED_IN = 7;
constexpr int STATUS_SIMULATED = 8;

GPS_FIX_TYPE FixTypeOf(int mode) {
  switch (mode) {
    case GpsdFix::MODE_2D:
      return GPS_FIX_2D;
    case GpsdFix::MODE_3D:
      return GPS_FIX_3D;
    default:
      return GPS_FIX_UNKNOWN;
  }
}

/// gpsd omits the status of a plain fix.
GPS_FIX_QUALITY QualityOf(int status) {
  switch (status) {
    case STATUS_DIFFERENTIAL:
    case STATUS_RTK_FIXED:
    case STATUS_RTK_FLOAT:
      return GPS_FIX_QUALITY_DGPS;
    case STATUS_DEAD_RECKONING:
    case STATUS_SURVEYED_IN:
    case STATUS_SIMULATED:
      return GPS_FIX_QUALITY_UNKNOWN;
    default:
      return GPS_FIX_QUALITY_GPS;
  }
}

SYSTEMTIME SystemTimeOf(std::chrono::sys_time<std::chrono::milliseconds> moment) {
  using namespace std::chrono;
  const auto midnight = floor<days>(moment);
  const year_month_day date{midnight};
  const hh_mm_ss clock{moment - midnight};
  return {
      .wYear = static_cast<WORD>(static_cast<int>(date.year())),
      .wMonth = static_cast<WORD>(static_cast<unsigned>(date.month())),
      .wDayOfWeek = static_cast<WORD>(weekday{midnight}.c_encoding()),
      .wDay = static_cast<WORD>(static_cast<unsigned>(date.day())),
      .wHour = static_cast<WORD>(clock.hours().count()),
      .wMinute = static_cast<WORD>(clock.minutes().count()),
      .wSecond = static_cast<WORD>(clock.seconds().count()),
      .wMilliseconds = static_cast<WORD>(clock.subseconds().count()),
  };
}

/// Stores a known value and sets its bit; an unknown value (not finite) changes nothing.
template <typename T>
void Store(double value, T& member, DWORD bit, GPS_POSITION& record) {
  if (std::isfinite(value)) {
    member = static_cast<T>(value);
    record.dwValidFields |= bit;
  }
}

/// A value of one satellite as a whole number; values below 0 (a satellite under the horizon, a
/// signal not received) become 0.
void StoreWhole(double value, DWORD& entry, DWORD bit, GPS_POSITION& record) {
  if (std::isfinite(value)) {
    entry = static_cast<DWORD>(std::lround(std::max(value, 0.0)));
    record.dwValidFields |= bit;
  }
}

template <typename T>
bool IsFresh(const std::optional<T>& report, LatestPosition::TimePoint now,
             std::chrono::seconds lifetime) {
  return report && now - report->time < lifetime;
}

}  // namespace

void LatestPosition::Update(const GpsdReport& report, TimePoint now) {
  if (report.fix) {
    fix = {*report.fix, now};
  }
  if (!report.sky) {
    return;
  }
  const GpsdSky& view = *report.sky;
  // gpsd sends dilutions and satellites together or one after the other; only a sky view with
  // neither means that nothing is received.
  const bool hasDilutions =
      std::isfinite(view.hdop) || std::isfinite(view.pdop) || std::isfinite(view.vdop);
  const bool hasSatellites = !view.satellites.empty();
  if (hasDilutions || !hasSatellites) {
    dilutions = {{view.pdop, view.hdop, view.vdop}, now};
  }
  if (hasSatellites || !hasDilutions) {
    sky = {SkyOf(view), now};
  }
}

GPS_POSITION LatestPosition::At(TimePoint now) const {
  GPS_POSITION record = {};
  record.dwVersion = GPS_VERSION_1;
  record.dwSize = sizeof record;
  if (IsFresh(fix, now, FIX_LIFETIME)) {
    WriteFix(fix->value, record);
  }
  if (record.FixType != GPS_FIX_UNKNOWN && IsFresh(dilutions, now, SKY_LIFETIME)) {
    WriteDilutions(dilutions->value, record);
  }
  if (IsFresh(sky, now, SKY_LIFETIME)) {
    WriteSky(sky->value, record);
  }
  return record;
}

/// Selects up to 12 satellites for the record, as receivers of several constellations see 40: first
/// the used ones, then the strongest of the rest. Both groups keep the receiver's order, so that
/// entries do not change places with every signal.
LatestPosition::Sky LatestPosition::SkyOf(const GpsdSky& view) {
  const std::vector<GpsdSatellite>& seen = view.satellites;
  Sky sky;
  std::vector<std::size_t> best;
  for (std::size_t i = 0; i < seen.size(); i++) {
    if (seen[i].prn > 0) {
      best.push_back(i);
      sky.usedCount += seen[i].isUsed ? 1 : 0;
    }
  }
  const auto signal = [&seen](std::size_t i) { return seen[i].signal > 0 ? seen[i].signal : 0; };
  std::stable_sort(best.begin(), best.end(), [&](std::size_t a, std::size_t b) {
    return seen[a].isUsed != seen[b].isUsed ? seen[a].isUsed : signal(a) > signal(b);
  });
  best.resize(std::min(best.size(), sky.satellites.size()));
  std::sort(best.begin(), best.end(), [&seen](std::size_t a, std::size_t b) {
    return seen[a].isUsed != seen[b].isUsed ? seen[a].isUsed : a < b;
  });
  for (const std::size_t i : best) {
    sky.satellites[sky.listed++] = seen[i];
  }
  return sky;
}

void LatestPosition::WriteFix(const GpsdFix& fix, GPS_POSITION& record) {
  if (fix.time) {
    record.stUTCTime = SystemTimeOf(*fix.time);
    record.dwValidFields |= GPS_VALID_UTC_TIME;
  }
  record.FixType = FixTypeOf(fix.mode);
  if (record.FixType == GPS_FIX_UNKNOWN) {
    return;
  }
  record.FixQuality = QualityOf(fix.status);
  Store(fix.latitude, record.dblLatitude, GPS_VALID_LATITUDE, record);
  Store(fix.longitude, record.dblLongitude, GPS_VALID_LONGITUDE, record);
  Store(fix.speed * KNOTS_PER_METRE_PER_SECOND, record.flSpeed, GPS_VALID_SPEED, record);
  Store(fix.course, record.flHeading, GPS_VALID_HEADING, record);
  if (record.FixType == GPS_FIX_3D) {
    Store(fix.seaLevelAltitude, record.flAltitudeWRTSeaLevel, GPS_VALID_ALTITUDE_WRT_SEA_LEVEL,
          record);
    Store(fix.ellipsoidAltitude, record.flAltitudeWRTEllipsoid, GPS_VALID_ALTITUDE_WRT_ELLIPSOID,
          record);
  }
}

void LatestPosition::WriteDilutions(const Dilutions& dilutions, GPS_POSITION& record) {
  Store(dilutions.pdop, record.flPositionDilutionOfPrecision,
        GPS_VALID_POSITION_DILUTION_OF_PRECISION, record);
  Store(dilutions.hdop, record.flHorizontalDilutionOfPrecision,
        GPS_VALID_HORIZONTAL_DILUTION_OF_PRECISION, record);
  Store(dilutions.vdop, record.flVerticalDilutionOfPrecision,
        GPS_VALID_VERTICAL_DILUTION_OF_PRECISION, record);
}

void LatestPosition::WriteSky(const Sky& sky, GPS_POSITION& record) {
  record.dwSatelliteCount = static_cast<DWORD>(sky.usedCount);
  record.dwSatellitesInView = static_cast<DWORD>(sky.listed);
  record.dwValidFields |= GPS_VALID_SATELLITE_COUNT | GPS_VALID_SATELLITES_USED_PRNS |
                          GPS_VALID_SATELLITES_IN_VIEW | GPS_VALID_SATELLITES_IN_VIEW_PRNS;
  for (std::size_t i = 0; i < sky.listed; i++) {
    const GpsdSatellite& satellite = sky.satellites[i];
    const auto prn = static_cast<DWORD>(satellite.prn);
    record.rgdwSatellitesInViewPRNs[i] = prn;
    if (satellite.isUsed) {
      // The used satellites come first, so their list has no gaps.
      record.rgdwSatellitesUsedPRNs[i] = prn;
    }
    StoreWhole(satellite.elevation, record.rgdwSatellitesInViewElevation[i],
               GPS_VALID_SATELLITES_IN_VIEW_ELEVATION, record);
    StoreWhole(satellite.azimuth, record.rgdwSatellitesInViewAzimuth[i],
               GPS_VALID_SATELLITES_IN_VIEW_AZIMUTH, record);
    StoreWhole(satellite.signal, record.rgdwSatellitesInViewSignalToNoiseRatio[i],
               GPS_VALID_SATELLITES_IN_VIEW_SIGNAL_TO_NOISE_RATIO, record);
  }
}

}  // namespace dastrel
