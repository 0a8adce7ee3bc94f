#include <gtest/gtest.h>

#include "gps/FixRecord.h"
#include "handheld.h"
#include "support/EditableFix.h"
#include "support/Moments.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

using testing_support::Fields;
using testing_support::Moment;

class GpsApiAdapterTest : public testing::Test {
 protected:
  void SetUp() override {
    handheld::SetTimeZone("MSK-3");
    handheld::SetClockStopped(true);
    handheld::SetClock(Moment(2024, 5, 6, 7, 8, 9));
    position.FixType = GPS_FIX_3D;
  }
  void TearDown() override {
    handheld::SetTimeZone("UTC0");
    handheld::SetClockStopped(false);
  }

  void Apply() { fix.ApplyGpsPosition(&position); }

  /// A complete position: 48.1173 N, 11.516666 E, 10 knots.
  void FillPosition() {
    position.dwValidFields = 0x1 | 0x2 | 0x4 | 0x8 | 0x10 | 0x40 | 0x100 | 0x200 | 0x400 | 0x800;
    position.stUTCTime = Moment(2024, 1, 31, 22, 0, 1, 500);
    position.dblLatitude = 48.1173;
    position.dblLongitude = 11.516666;
    position.flSpeed = 10;
    position.flHeading = 84.5F;
    position.flAltitudeWRTSeaLevel = 545.5F;
    position.flPositionDilutionOfPrecision = 2.5F;
    position.flHorizontalDilutionOfPrecision = 1.5F;
    position.flVerticalDilutionOfPrecision = 2;
    position.dwSatelliteCount = 9;
  }

  void SeeSatellite(std::size_t index, DWORD prn, DWORD elevation, DWORD azimuth, DWORD snr) {
    position.rgdwSatellitesInViewPRNs[index] = prn;
    position.rgdwSatellitesInViewElevation[index] = elevation;
    position.rgdwSatellitesInViewAzimuth[index] = azimuth;
    position.rgdwSatellitesInViewSignalToNoiseRatio[index] = snr;
  }

  void ExpectSatellite(unsigned index, int prn, int elevation, int azimuth, int snr) const {
    const SatelliteInfo& satellite = *fix.GetSatellite(index);
    EXPECT_EQ(satellite.prn, prn) << index;
    EXPECT_EQ(satellite.elevation, elevation) << index;
    EXPECT_EQ(satellite.azimuth, azimuth) << index;
    EXPECT_EQ(satellite.snr, snr) << index;
  }

  /// The latitude kept for this one in degrees.
  float LatitudeOf(double degrees) {
    position.dwValidFields = 0x2;
    position.dblLatitude = degrees;
    Apply();
    return fix.latitude;
  }

  EditableFix fix;
  GPS_POSITION position = {};
};

TEST_F(GpsApiAdapterTest, AllValidMembersAreTaken) {
  FillPosition();
  Apply();
  EXPECT_EQ(fix.fixValid, 1);
  EXPECT_EQ(fix.latitude, 4807.038F);
  EXPECT_EQ(fix.longitude, 1131.0F);
  EXPECT_EQ(fix.speedKnots, 10.0F);
  EXPECT_EQ(fix.speedKmh, 18.52F);
  EXPECT_EQ(fix.course, 84.5F);
  EXPECT_EQ(fix.altitude, 545.5F);
  EXPECT_EQ(fix.pdop, 2.5F);
  EXPECT_EQ(fix.hdop, 1.5F);
  EXPECT_EQ(fix.vdop, 2.0F);
  EXPECT_EQ(fix.satellitesUsed, 9);
}

TEST_F(GpsApiAdapterTest, TimeIsUtcAndItsLocalTimeFollows) {
  FillPosition();
  Apply();
  EXPECT_EQ(Fields(fix.utcTime), Fields(Moment(2024, 1, 31, 22, 0, 1, 500)));
  EXPECT_EQ(Fields(fix.localTime), Fields(Moment(2024, 2, 1, 1, 0, 1, 500)));
}

TEST_F(GpsApiAdapterTest, MembersWhoseBitIsClearAreLeftAlone) {
  FillPosition();
  position.dwValidFields = 0;
  Apply();
  EXPECT_EQ(fix.fixValid, 1);
  EXPECT_EQ(fix.latitude, -9999.0F);
  EXPECT_EQ(fix.longitude, -9999.0F);
  EXPECT_EQ(fix.course, -9999.0F);
  EXPECT_EQ(fix.altitude, -9999.0F);
  EXPECT_EQ(fix.pdop, -9999.0F);
  EXPECT_EQ(fix.hdop, -9999.0F);
  EXPECT_EQ(fix.vdop, -9999.0F);
  EXPECT_EQ(fix.satellitesUsed, 0);
  EXPECT_EQ(fix.GetPointCount(), 0);
}

TEST_F(GpsApiAdapterTest, EachBitStandsForItsOwnMember) {
  struct Bit {
    DWORD bit;
    float FixRecord::*field;
    float value;
  };
  constexpr Bit BITS[] = {
      {0x2, &EditableFix::latitude, 4807.038F}, {0x4, &EditableFix::longitude, 1131.0F},
      {0x8, &EditableFix::speedKnots, 10.0F},   {0x10, &EditableFix::course, 84.5F},
      {0x40, &EditableFix::altitude, 545.5F},   {0x100, &EditableFix::pdop, 2.5F},
      {0x200, &EditableFix::hdop, 1.5F},        {0x400, &EditableFix::vdop, 2.0F}};
  FillPosition();
  for (const Bit& chosen : BITS) {
    EditableFix record;
    record.speedKnots = 1;  // a missing one would be set to 0
    position.dwValidFields = chosen.bit;
    record.ApplyGpsPosition(&position);
    for (const Bit& other : BITS) {
      const float untouched = other.field == &EditableFix::speedKnots ? 1.0F : -9999.0F;
      EXPECT_EQ(record.*other.field, other.bit == chosen.bit ? other.value : untouched)
          << std::hex << chosen.bit << " and " << other.bit;
    }
    EXPECT_EQ(record.satellitesUsed, 0);
  }
}

TEST_F(GpsApiAdapterTest, TimeAndLatitudeAloneLeaveTheSpeedAndDeriveItAgain) {
  FillPosition();
  fix.speedKnots = 5;
  fix.speedKmh = 77;
  position.FixType = GPS_FIX_3D;
  position.dwValidFields = 0x3;
  Apply();
  EXPECT_EQ(Fields(fix.utcTime), Fields(Moment(2024, 1, 31, 22, 0, 1, 500)));
  EXPECT_EQ(fix.latitude, 4807.038F);
  EXPECT_EQ(fix.longitude, -9999.0F);
  EXPECT_EQ(fix.speedKnots, 5.0F);
  EXPECT_EQ(fix.speedKmh, 9.26F);  // 5 x 1.852
}

TEST_F(GpsApiAdapterTest, DegreesBecomeDegreesTimes100PlusMinutes) {
  EXPECT_EQ(LatitudeOf(48.1173), 4807.038F);  // 0.1173 x 60 = 7.038
  EXPECT_EQ(LatitudeOf(0.25), 15.0F);
  EXPECT_EQ(LatitudeOf(48), 4800.0F);
  EXPECT_EQ(LatitudeOf(0), 0.0F);
}

TEST_F(GpsApiAdapterTest, NegativeDegreesStayNegative) {
  EXPECT_EQ(LatitudeOf(-48.5), -4830.0F);
  EXPECT_EQ(LatitudeOf(-0.25), -15.0F);
}

TEST_F(GpsApiAdapterTest, MissingOrNegativeSpeedBecomesStandstill) {
  Apply();
  EXPECT_EQ(fix.speedKnots, 0.0F);
  EXPECT_EQ(fix.speedKmh, 0.0F);
  position.dwValidFields = 0x8;
  position.flSpeed = -3;
  Apply();
  EXPECT_EQ(fix.speedKnots, 0.0F);
  EXPECT_EQ(fix.speedKmh, 0.0F);
}

TEST_F(GpsApiAdapterTest, PositionAppendsATrackPoint) {
  FillPosition();
  Apply();
  ASSERT_EQ(fix.GetPointCount(), 1);
  const TrackPoint& point = *fix.GetPoint(0);
  EXPECT_EQ(point.latitude, 4807.038F);
  EXPECT_EQ(point.longitude, 1131.0F);
  EXPECT_EQ(point.altitude, 545.5F);
  EXPECT_EQ(point.course, 84.5F);
  EXPECT_EQ(point.speedKmh, 18.52F);
  EXPECT_EQ(Fields(point.time), Fields(Moment(2024, 2, 1, 1, 0, 1, 500)));
}

TEST_F(GpsApiAdapterTest, SamePositionTwiceIsOnePoint) {
  FillPosition();
  Apply();
  Apply();
  EXPECT_EQ(fix.GetPointCount(), 1);
}

TEST_F(GpsApiAdapterTest, SatellitesTakeThePlatformsSlots) {
  position.dwSatellitesInView = 2;
  SeeSatellite(0, 7, 10, 20, 30);
  SeeSatellite(5, 12, 45, 359, 0);
  Apply();
  ExpectSatellite(0, 7, 10, 20, 30);
  ExpectSatellite(1, -9999, -9999, -9999, -9999);
  ExpectSatellite(5, 12, 45, 359, 0);
}

TEST_F(GpsApiAdapterTest, AllTwelveSlotsAreRewrittenWhateverTheCount) {
  position.dwSatellitesInView = 1;
  for (DWORD index = 0; index < 12; ++index) {
    SeeSatellite(index, index + 1, index, index, index);
  }
  Apply();
  ExpectSatellite(0, 1, 0, 0, 0);
  ExpectSatellite(11, 12, 11, 11, 11);

  position.rgdwSatellitesInViewPRNs[11] = 0;
  Apply();
  ExpectSatellite(11, -9999, -9999, -9999, -9999);
}

TEST_F(GpsApiAdapterTest, NoSatellitesInViewLeaveTheTableAlone) {
  position.dwSatellitesInView = 1;
  SeeSatellite(0, 7, 10, 20, 30);
  Apply();
  position.dwSatellitesInView = 0;
  SeeSatellite(0, 8, 11, 21, 31);
  Apply();
  ExpectSatellite(0, 7, 10, 20, 30);
}

/// State before a lost fix: everything known.
class GpsApiAdapterLostFixTest : public GpsApiAdapterTest {
 protected:
  void SetUp() override {
    GpsApiAdapterTest::SetUp();
    FillPosition();
    position.dwSatellitesInView = 1;
    SeeSatellite(0, 7, 10, 20, 30);
    Apply();
    fix.ggaField10 = 0;
    ASSERT_EQ(fix.GetPointCount(), 1);
  }

  void ExpectPositionForgotten() const {
    EXPECT_EQ(fix.altitude, -9999.0F);
    EXPECT_EQ(fix.longitude, -9999.0F);
    EXPECT_EQ(fix.latitude, -9999.0F);
    EXPECT_EQ(fix.speedKmh, -9999.0F);
    EXPECT_EQ(fix.speedKnots, -9999.0F);
    EXPECT_EQ(fix.pdop, -9999.0F);
    EXPECT_EQ(fix.hdop, -9999.0F);
    EXPECT_EQ(fix.vdop, -9999.0F);
    EXPECT_EQ(fix.ggaField10, -9999.0F);
  }
};

TEST_F(GpsApiAdapterLostFixTest, PositionWithoutAFixForgetsPositionAndSatellites) {
  position.FixType = GPS_FIX_UNKNOWN;
  Apply();
  ExpectPositionForgotten();
  EXPECT_EQ(fix.fixValid, 0);
  ExpectSatellite(0, -9999, -9999, -9999, -9999);
}

TEST_F(GpsApiAdapterLostFixTest, PositionWithoutAFixKeepsCourseSatellitesUsedAndTrack) {
  position.FixType = GPS_FIX_UNKNOWN;
  Apply();
  EXPECT_EQ(fix.course, 84.5F);
  EXPECT_EQ(fix.satellitesUsed, 9);
  EXPECT_EQ(fix.GetPointCount(), 1);
}

TEST_F(GpsApiAdapterLostFixTest, PositionWithoutAFixTakesTheDevicesTime) {
  position.FixType = GPS_FIX_UNKNOWN;
  Apply();
  EXPECT_EQ(Fields(fix.localTime), Fields(Moment(2024, 5, 6, 10, 8, 9)));
  EXPECT_EQ(Fields(fix.utcTime), Fields(Moment(2024, 5, 6, 7, 8, 9)));
}

TEST_F(GpsApiAdapterLostFixTest, NoPositionAtAllKeepsFixFlagAndSatellites) {
  fix.ApplyGpsPosition(nullptr);
  ExpectPositionForgotten();
  EXPECT_EQ(fix.fixValid, 1);
  ExpectSatellite(0, 7, 10, 20, 30);
  EXPECT_EQ(fix.course, 84.5F);
  EXPECT_EQ(fix.satellitesUsed, 9);
  EXPECT_EQ(Fields(fix.localTime), Fields(Moment(2024, 5, 6, 10, 8, 9)));
  EXPECT_EQ(fix.GetPointCount(), 1);
}

}  // namespace
}  // namespace ferolin
