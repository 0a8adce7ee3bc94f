#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>

#include "track/Degrees.h"

namespace ferolin {
namespace {

std::uint32_t Bits(float value) {
  return std::bit_cast<std::uint32_t>(value);
}

TEST(DegreesFromNmeaTest, WholeDegrees) {
  EXPECT_EQ(0.0F, DegreesFromNmea(0));
  EXPECT_EQ(1.0F, DegreesFromNmea(100));
  EXPECT_EQ(90.0F, DegreesFromNmea(9000));
  EXPECT_EQ(180.0F, DegreesFromNmea(18000));
}

TEST(DegreesFromNmeaTest, NegativeCoordinatesStayNegative) {
  EXPECT_EQ(-180.0F, DegreesFromNmea(-18000));
  EXPECT_EQ(-DegreesFromNmea(4807.038F), DegreesFromNmea(-4807.038F));
}

/// The bits were worked out apart, rounding each of the steps m*k, (a-n)*k, their sum and + d to
/// single precision with k = 0x3C888889. The last four tell this from its likely variants: dividing
/// by 60, double precision in between, (m + (a-n))*k, another order of the sums, and fused
/// operations.
TEST(DegreesFromNmeaTest, EachStepIsRoundedToSinglePrecision) {
  EXPECT_EQ(0x4240781EU, Bits(DegreesFromNmea(4807.038F)));   // 48.117302
  EXPECT_EQ(0x41384444U, Bits(DegreesFromNmea(1131.0F)));     // 11.516666
  EXPECT_EQ(0x425E0889U, Bits(DegreesFromNmea(5530.5F)));     // 55.508335
  EXPECT_EQ(0xC20779A6U, Bits(DegreesFromNmea(-3352.128F)));  // -33.868797
  EXPECT_EQ(0x431735C2U, Bits(DegreesFromNmea(15112.6F)));    // 151.209991
  EXPECT_EQ(0x3E4CCCCEU, Bits(DegreesFromNmea(12.0F)));       // 0.2
  EXPECT_EQ(0xBC088889U, Bits(DegreesFromNmea(-0.5F)));       // -0.008333
  EXPECT_EQ(0x3F7FFEEAU, Bits(DegreesFromNmea(59.999F)));     // 0.999983
  EXPECT_EQ(0x403D2174U, Bits(DegreesFromNmea(257.31F)));     // 2.955167
  EXPECT_EQ(0x3F25ABA0U, Bits(DegreesFromNmea(38.829F)));     // 0.647150
  EXPECT_EQ(0x3FE8948EU, Bits(DegreesFromNmea(149.022F)));    // 1.817034
  EXPECT_EQ(0x3D6EDD77U, Bits(DegreesFromNmea(3.499F)));      // 0.058317
}

TEST(DegreesFromNmeaTest, EveryMinuteOfAQuarterOfTheGlobeIsRightToOneMetre) {
  for (int degrees = 0; degrees < 90; ++degrees) {
    for (int minutes = 0; minutes < 60; ++minutes) {
      const float coordinate = static_cast<float>(degrees * 100 + minutes);
      const double expected = degrees + minutes / 60.0;  // 9 millionths of a degree are a metre
      ASSERT_NEAR(expected, DegreesFromNmea(coordinate), 90 * 1e-7) << coordinate;
    }
  }
}

}  // namespace
}  // namespace ferolin
