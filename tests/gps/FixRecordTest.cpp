#include <gtest/gtest.h>

#include <bit>

#include "gps/FixRecord.h"
#include "handheld.h"
#include "support/EditableFix.h"
#include "support/Moments.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

using testing_support::Fields;
using testing_support::Moment;

TEST(FixRecordTest, MissingValueHasItsBitPatterns) {
  EXPECT_EQ(std::bit_cast<std::uint32_t>(MISSING_FLOAT), 0xC61C3C00U);
  EXPECT_EQ(static_cast<std::uint32_t>(MISSING_VALUE), 0xFFFFD8F1U);
}

TEST(FixRecordTest, FreshRecordKnowsNoNumber) {
  const EditableFix fix;
  EXPECT_EQ(fix.altitude, -9999.0F);
  EXPECT_EQ(fix.longitude, -9999.0F);
  EXPECT_EQ(fix.latitude, -9999.0F);
  EXPECT_EQ(fix.course, -9999.0F);
  EXPECT_EQ(fix.speedKnots, -9999.0F);
  EXPECT_EQ(fix.speedKmh, -9999.0F);
  EXPECT_EQ(fix.pdop, -9999.0F);
  EXPECT_EQ(fix.hdop, -9999.0F);
  EXPECT_EQ(fix.vdop, -9999.0F);
  EXPECT_EQ(fix.ggaField10, -9999.0F);
}

TEST(FixRecordTest, FreshRecordKeepsItsSpareSlotsMissing) {
  const EditableFix fix;
  for (std::size_t slot = 0; slot < 7; ++slot) {
    EXPECT_EQ(fix.reserved[slot], -9999.0F) << slot;
  }
}

TEST(FixRecordTest, FreshRecordHasNoFixNoSatellitesUsedAndNoPoints) {
  const EditableFix fix;
  EXPECT_EQ(fix.fixValid, 0);
  EXPECT_EQ(fix.satellitesUsed, 0);
  EXPECT_EQ(fix.GetPointCount(), 0);
  EXPECT_EQ(fix.GetPoint(0), nullptr);
}

TEST(FixRecordTest, FreshRecordHasTwelveFreeSatelliteSlots) {
  const EditableFix fix;
  ASSERT_EQ(fix.satellites.size(), 12U);
  for (const SatelliteInfo& satellite : fix.satellites) {
    EXPECT_EQ(satellite.prn, -9999);
    EXPECT_EQ(satellite.elevation, -9999);
    EXPECT_EQ(satellite.azimuth, -9999);
    EXPECT_EQ(satellite.snr, -9999);
  }
}

TEST(FixRecordTest, FreshRecordHoldsTheLocalClockInItsUtcTime) {
  handheld::SetTimeZone("MSK-3");
  handheld::SetClockStopped(true);
  handheld::SetClock(Moment(2024, 5, 6, 7, 8, 9, 250));
  const EditableFix fix;
  EXPECT_EQ(Fields(fix.utcTime), Fields(Moment(2024, 5, 6, 10, 8, 9, 250)));
  handheld::SetClockStopped(false);
}

TEST(FixRecordTest, SatellitesAreFoundByIndex) {
  const EditableFix fix;
  EXPECT_EQ(fix.GetSatellite(0), &fix.satellites[0]);
  EXPECT_EQ(fix.GetSatellite(11), &fix.satellites[11]);
}

TEST(FixRecordTest, SatelliteIndexOutOfRangeGivesNull) {
  const EditableFix fix;
  EXPECT_EQ(fix.GetSatellite(12), nullptr);
  EXPECT_EQ(fix.GetSatellite(static_cast<unsigned>(-1)), nullptr);
}

}  // namespace
}  // namespace ferolin
