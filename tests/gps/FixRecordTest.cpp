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
  EXPECT_EQ(0xC61C3C00U, std::bit_cast<std::uint32_t>(MISSING_FLOAT));
  EXPECT_EQ(0xFFFFD8F1U, static_cast<std::uint32_t>(MISSING_VALUE));
}

TEST(FixRecordTest, FreshRecordKnowsNoNumber) {
  const EditableFix fix;
  EXPECT_EQ(-9999.0F, fix.altitude);
  EXPECT_EQ(-9999.0F, fix.longitude);
  EXPECT_EQ(-9999.0F, fix.latitude);
  EXPECT_EQ(-9999.0F, fix.course);
  EXPECT_EQ(-9999.0F, fix.speedKnots);
  EXPECT_EQ(-9999.0F, fix.speedKmh);
  EXPECT_EQ(-9999.0F, fix.pdop);
  EXPECT_EQ(-9999.0F, fix.hdop);
  EXPECT_EQ(-9999.0F, fix.vdop);
  EXPECT_EQ(-9999.0F, fix.ggaField10);
}

TEST(FixRecordTest, FreshRecordKeepsItsSpareSlotsMissing) {
  const EditableFix fix;
  for (std::size_t slot = 0; slot < 7; ++slot) {
    EXPECT_EQ(-9999.0F, fix.reserved[slot]) << slot;
  }
}

TEST(FixRecordTest, FreshRecordHasNoFixNoSatellitesUsedAndNoPoints) {
  const EditableFix fix;
  EXPECT_EQ(0, fix.fixValid);
  EXPECT_EQ(0, fix.satellitesUsed);
  EXPECT_EQ(0, fix.GetPointCount());
  EXPECT_EQ(nullptr, fix.GetPoint(0));
}

TEST(FixRecordTest, FreshRecordHasTwelveFreeSatelliteSlots) {
  const EditableFix fix;
  ASSERT_EQ(12U, fix.satellites.size());
  for (const SatelliteInfo& satellite : fix.satellites) {
    EXPECT_EQ(-9999, satellite.prn);
    EXPECT_EQ(-9999, satellite.elevation);
    EXPECT_EQ(-9999, satellite.azimuth);
    EXPECT_EQ(-9999, satellite.snr);
  }
}

TEST(FixRecordTest, FreshRecordHoldsTheLocalClockInItsUtcTime) {
  handheld::SetTimeZone("MSK-3");
  handheld::SetClockStopped(true);
  handheld::SetClock(Moment(2024, 5, 6, 7, 8, 9, 250));
  const EditableFix fix;
  EXPECT_EQ(Fields(Moment(2024, 5, 6, 10, 8, 9, 250)), Fields(fix.utcTime));
  handheld::SetClockStopped(false);
}

TEST(FixRecordTest, SatellitesAreFoundByIndex) {
  const EditableFix fix;
  EXPECT_EQ(&fix.satellites[0], fix.GetSatellite(0));
  EXPECT_EQ(&fix.satellites[11], fix.GetSatellite(11));
}

TEST(FixRecordTest, SatelliteIndexOutOfRangeGivesNull) {
  const EditableFix fix;
  EXPECT_EQ(nullptr, fix.GetSatellite(12));
  EXPECT_EQ(nullptr, fix.GetSatellite(static_cast<unsigned>(-1)));
}

}  // namespace
}  // namespace ferolin
