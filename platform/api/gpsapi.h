// Position record of the device's GPS API.
#pragma once

#include <windows.h>

#include <cstddef>

constexpr DWORD GPS_VERSION_1 = 1;
/// Entries of each satellite array; an entry whose PRN is 0 is free.
constexpr int GPS_MAX_SATELLITES = 12;

// Bits of GPS_POSITION::dwValidFields. A member whose bit is clear holds nothing meaningful.
constexpr DWORD GPS_VALID_UTC_TIME = 0x00000001;
constexpr DWORD GPS_VALID_LATITUDE = 0x00000002;
constexpr DWORD GPS_VALID_LONGITUDE = 0x00000004;
constexpr DWORD GPS_VALID_SPEED = 0x00000008;
constexpr DWORD GPS_VALID_HEADING = 0x00000010;
constexpr DWORD GPS_VALID_MAGNETIC_VARIATION = 0x00000020;
constexpr DWORD GPS_VALID_ALTITUDE_WRT_SEA_LEVEL = 0x00000040;
constexpr DWORD GPS_VALID_ALTITUDE_WRT_ELLIPSOID = 0x00000080;
constexpr DWORD GPS_VALID_POSITION_DILUTION_OF_PRECISION = 0x00000100;
constexpr DWORD GPS_VALID_HORIZONTAL_DILUTION_OF_PRECISION = 0x00000200;
constexpr DWORD GPS_VALID_VERTICAL_DILUTION_OF_PRECISION = 0x00000400;
constexpr DWORD GPS_VALID_SATELLITE_COUNT = 0x00000800;
constexpr DWORD GPS_VALID_SATELLITES_USED_PRNS = 0x00001000;
constexpr DWORD GPS_VALID_SATELLITES_IN_VIEW = 0x00002000;
constexpr DWORD GPS_VALID_SATELLITES_IN_VIEW_PRNS = 0x00004000;
constexpr DWORD GPS_VALID_SATELLITES_IN_VIEW_ELEVATION = 0x00008000;
constexpr DWORD GPS_VALID_SATELLITES_IN_VIEW_AZIMUTH = 0x00010000;
constexpr DWORD GPS_VALID_SATELLITES_IN_VIEW_SIGNAL_TO_NOISE_RATIO = 0x00020000;

// The underlying types are fixed: some handheld compilers store small enumerations in a byte.

enum GPS_FIX_QUALITY : int {
  GPS_FIX_QUALITY_UNKNOWN = 0,
  GPS_FIX_QUALITY_GPS,
  GPS_FIX_QUALITY_DGPS,
};

/// GPS_FIX_UNKNOWN means that there is no fix.
enum GPS_FIX_TYPE : int {
  GPS_FIX_UNKNOWN = 0,
  GPS_FIX_2D,
  GPS_FIX_3D,
};

/// Whether the receiver chooses between 2D and 3D itself.
enum GPS_FIX_SELECTION : int {
  GPS_FIX_SELECTION_UNKNOWN = 0,
  GPS_FIX_SELECTION_AUTO,
  GPS_FIX_SELECTION_MANUAL,
};

struct GPS_POSITION {
  DWORD dwVersion;
  /// Bytes of this structure.
  DWORD dwSize;
  DWORD dwValidFields;
  DWORD dwFlags;
  SYSTEMTIME stUTCTime;
  /// Decimal degrees, negative for South and West.
  double dblLatitude;
  double dblLongitude;
  /// Knots.
  float flSpeed;
  /// Degrees from true north.
  float flHeading;
  double dblMagneticVariation;
  /// Metres.
  float flAltitudeWRTSeaLevel;
  float flAltitudeWRTEllipsoid;
  GPS_FIX_QUALITY FixQuality;
  GPS_FIX_TYPE FixType;
  GPS_FIX_SELECTION SelectionType;
  float flPositionDilutionOfPrecision;
  float flHorizontalDilutionOfPrecision;
  float flVerticalDilutionOfPrecision;
  /// Satellites used in the solution; can be more than GPS_MAX_SATELLITES.
  DWORD dwSatelliteCount;
  DWORD rgdwSatellitesUsedPRNs[GPS_MAX_SATELLITES];
  /// Entries filled in the four arrays below, 0 to GPS_MAX_SATELLITES.
  DWORD dwSatellitesInView;
  DWORD rgdwSatellitesInViewPRNs[GPS_MAX_SATELLITES];
  /// Degrees above the horizon and degrees from true north.
  DWORD rgdwSatellitesInViewElevation[GPS_MAX_SATELLITES];
  DWORD rgdwSatellitesInViewAzimuth[GPS_MAX_SATELLITES];
  /// dB.
  DWORD rgdwSatellitesInViewSignalToNoiseRatio[GPS_MAX_SATELLITES];
};

// The record crosses library boundaries as bytes: its layout is the same in every home.
static_assert(sizeof(GPS_POSITION) == 344);
static_assert(offsetof(GPS_POSITION, dwValidFields) == 8);
static_assert(offsetof(GPS_POSITION, stUTCTime) == 16);
static_assert(offsetof(GPS_POSITION, dblLatitude) == 32);
static_assert(offsetof(GPS_POSITION, dblLongitude) == 40);
static_assert(offsetof(GPS_POSITION, flSpeed) == 48);
static_assert(offsetof(GPS_POSITION, flHeading) == 52);
static_assert(offsetof(GPS_POSITION, flAltitudeWRTSeaLevel) == 64);
static_assert(offsetof(GPS_POSITION, flAltitudeWRTEllipsoid) == 68);
static_assert(offsetof(GPS_POSITION, FixQuality) == 72);
static_assert(offsetof(GPS_POSITION, FixType) == 76);
static_assert(offsetof(GPS_POSITION, SelectionType) == 80);
static_assert(offsetof(GPS_POSITION, flPositionDilutionOfPrecision) == 84);
static_assert(offsetof(GPS_POSITION, flHorizontalDilutionOfPrecision) == 88);
static_assert(offsetof(GPS_POSITION, flVerticalDilutionOfPrecision) == 92);
static_assert(offsetof(GPS_POSITION, dwSatelliteCount) == 96);
static_assert(offsetof(GPS_POSITION, rgdwSatellitesUsedPRNs) == 100);
static_assert(offsetof(GPS_POSITION, dwSatellitesInView) == 148);
static_assert(offsetof(GPS_POSITION, rgdwSatellitesInViewPRNs) == 152);
static_assert(offsetof(GPS_POSITION, rgdwSatellitesInViewElevation) == 200);
static_assert(offsetof(GPS_POSITION, rgdwSatellitesInViewAzimuth) == 248);
static_assert(offsetof(GPS_POSITION, rgdwSatellitesInViewSignalToNoiseRatio) == 296);
