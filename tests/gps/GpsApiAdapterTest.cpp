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
    EXPECT_EQ(prn, satellite.prn) << index;
    EXPECT_EQ(elevation, satellite.elevation) << index;
    EXPECT_EQ(azimuth, satellite.azimuth) << index;
    EXPECT_EQ(snr, satellite.snr) << index;
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
  EXPECT_EQ(1, fix.fixValid);
  EXPECT_EQ(4807.038F, fix.latitude);
  EXPECT_EQ(1131.0F, fix.longitude);
  EXPECT_EQ(10.0F, fix.speedKnots);
  EXPECT_EQ(18.52F, fix.speedKmh);
  EXPECT_EQ(84.5F, fix.course);
  EXPECT_EQ(545.5F, fix.altitude);
  EXPECT_EQ(2.5F, fix.pdop);
  EXPECT_EQ(1.5F, fix.hdop);
  EXPECT_EQ(2.0F, fix.vdop);
  EXPECT_EQ(9, fix.satellitesUsed);
}

TEST_F(GpsApiAdapterTest, TimeIsUtcAndItsLocalTimeFollows) {
  FillPosition();
  Apply();
  EXPECT_EQ(Fields(Moment(2024, 1, 31, 22, 0, 1, 500)), Fields(fix.utcTime));
  EXPECT_EQ(Fields(Moment(2024, 2, 1, 1, 0, 1, 500)), Fields(fix.localTime));
}

TEST_F(GpsApiAdapterTest, MembersWhoseBitIsClearAreLeftAlone) {
  FillPosition();
  position.dwValidFields = 0;
  Apply();
  EXPECT_EQ(1, fix.fixValid);
  EXPECT_EQ(-9999.0F, fix.latitude);
  EXPECT_EQ(-9999.0F, fix.longitude);
  EXPECT_EQ(-9999.0F, fix.course);
  EXPECT_EQ(-9999.0F, fix.altitude);
  EXPECT_EQ(-9999.0F, fix.pdop);
  EXPECT_EQ(-9999.0F, fix.hdop);
  EXPECT_EQ(-9999.0F, fix.vdop);
  EXPECT_EQ(0, fix.satellitesUsed);
  EXPECT_EQ(0, fix.GetPointCount());
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
      EXPECT_EQ(other.bit == chosen.bit ? other.value : untouched, record.*other.field)
          << std::hex << chosen.bit << " and " << other.bit;
    }
    EXPECT_EQ(0, record.satellitesUsed);
  }
}

TEST_F(GpsApiAdapterTest, TimeAndLatitudeAloneLeaveTheSpeedAndDeriveItAgain) {
  FillPosition();
  fix.speedKnots = 5;
  fix.speedKmh = 77;
  position.FixType = GPS_FIX_3D;
  position.dwValidFields = 0x3;
  Apply();
  EXPECT_EQ(Fields(Moment(2024, 1, 31, 22, 0, 1, 500)), Fields(fix.utcTime));
  EXPECT_EQ(4807.038F, fix.latitude);
  EXPECT_EQ(-9999.0F, fix.longitude);
  EXPECT_EQ(5.0F, fix.speedKnots);
  EXPECT_EQ(9.26F, fix.speedKmh);  // 5 x 1.852
}

TEST_F(GpsApiAdapterTest, DegreesBecomeDegreesTimes100PlusMinutes) {
  EXPECT_EQ(4807.038F, LatitudeOf(48.1173));  // 0.1173 x 60 = 7.038
  EXPECT_EQ(15.0F, LatitudeOf(0.25));
  EXPECT_EQ(4800.0F, LatitudeOf(48));
  EXPECT_EQ(0.0F, LatitudeOf(0));
}

TEST_F(GpsApiAdapterTest, NegativeDegreesStayNegative) {
  EXPECT_EQ(-4830.0F, LatitudeOf(-48.5));
  EXPECT_EQ(-15.0F, LatitudeOf(-0.25));
}

TEST_F(GpsApiAdapterTest, MissingOrNegativeSpeedBecomesStandstill) {
  Apply();
  EXPECT_EQ(0.0F, fix.speedKnots);
  EXPECT_EQ(0.0F, fix.speedKmh);
  position.dwValidFields = 0x8;
  position.flSpeed = -3;
  Apply();
  EXPECT_EQ(0.0F, fix.speedKnots);
  EXPECT_EQ(0.0F, fix.speedKmh);
}

TEST_F(GpsApiAdapterTest, PositionAppendsATrackPoint) {
  FillPosition();
  Apply();
  ASSERT_EQ(1, fix.GetPointCount());
  const TrackPoint& point = *fix.GetPoint(0);
  EXPECT_EQ(4807.038F, point.latitude);
  EXPECT_EQ(1131.0F, point.longitude);
  EXPECT_EQ(545.5F, point.altitude);
  EXPECT_EQ(84.5F, point.course);
  EXPECT_EQ(18.52F, point.speedKmh);
  EXPECT_EQ(Fields(Moment(2024, 2, 1, 1, 0, 1, 500)), Fields(point.time));
}

TEST_F(GpsApiAdapterTest, SamePositionTwiceIsOnePoint) {
  FillPosition();
  Apply();
  Apply();
  EXPECT_EQ(1, fix.GetPointCount());
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
    ASSERT_EQ(1, fix.GetPointCount());
  }

  void ExpectPositionForgotten() const {
    EXPECT_EQ(-9999.0F, fix.altitude);
    EXPECT_EQ(-9999.0F, fix.longitude);
    EXPECT_EQ(-9999.0F, fix.latitude);
    EXPECT_EQ(-9999.0F, fix.speedKmh);
    EXPECT_EQ(-9999.0F, fix.speedKnots);
    EXPECT_EQ(-9999.0F, fix.pdop);
    EXPECT_EQ(-9999.0F, fix.hdop);
    EXPECT_EQ(-9999.0F, fix.vdop);
    EXPECT_EQ(-9999.0F, fix.ggaField10);
  }
};

TEST_F(GpsApiAdapterLostFixTest, PositionWithoutAFixForgetsPositionAndSatellites) {
  position.FixType = GPS_FIX_UNKNOWN;
  Apply();
  ExpectPositionForgotten();
  EXPECT_EQ(0, fix.fixValid);
  ExpectSatellite(0, -9999, -9999, -9999, -9999);
}

TEST_F(GpsApiAdapterLostFixTest, PositionWithoutAFixKeepsCourseSatellitesUsedAndTrack) {
  position.FixType = GPS_FIX_UNKNOWN;
  Apply();
  EXPECT_EQ(84.5F, fix.course);
  EXPECT_EQ(9, fix.satellitesUsed);
  EXPECT_EQ(1, fix.GetPointCount());
}

TEST_F(GpsApiAdapterLostFixTest, PositionWithoutAFixTakesTheDevicesTime) {
  position.FixType = GPS_FIX_UNKNOWN;
  Apply();
  EXPECT_EQ(Fields(Moment(2024, 5, 6, 10, 8, 9)), Fields(fix.localTime));
  EXPECT_EQ(Fields(Moment(2024, 5, 6, 7, 8, 9)), Fields(fix.utcTime));
}

TEST_F(GpsApiAdapterLostFixTest, NoPositionAtAllKeepsFixFlagAndSatellites) {
  fix.ApplyGpsPosition(nullptr);
  ExpectPositionForgotten();
  EXPECT_EQ(1, fix.fixValid);
  ExpectSatellite(0, 7, 10, 20, 30);
  EXPECT_EQ(84.5F, fix.course);
  EXPECT_EQ(9, fix.satellitesUsed);
  EXPECT_EQ(Fields(Moment(2024, 5, 6, 10, 8, 9)), Fields(fix.localTime));
  EXPECT_EQ(1, fix.GetPointCount());
}

}  // namespace
}  // namespace ferolin
