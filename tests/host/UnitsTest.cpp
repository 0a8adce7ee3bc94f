#include <gtest/gtest.h>

#include "base/Units.h"

namespace host {
namespace {

TEST(Units, OfSpeed) {
  EXPECT_EQ("62.0 km/h", DescribeSpeed(62, Units::KM));
  EXPECT_EQ("60.0 mph", DescribeSpeed(96.56064, Units::MI));
  EXPECT_EQ("10.0 kn", DescribeSpeed(18.52, Units::NM));
  EXPECT_EQ("37.75 km/h", DescribeSpeed(37.75, Units::KM, 2));
}

TEST(Units, OfDistance) {
  EXPECT_EQ("472 m", DescribeDistance(0.4721, Units::KM));
  EXPECT_EQ("4.72 km", DescribeDistance(4.7211, Units::KM));
  EXPECT_EQ("47.2 km", DescribeDistance(47.211, Units::KM));
  EXPECT_EQ("0.50 mi", DescribeDistance(0.804672, Units::MI));
  EXPECT_EQ("26.2 mi", DescribeDistance(42.195, Units::MI));
  EXPECT_EQ("1.00 NM", DescribeDistance(1.852, Units::NM));
  EXPECT_EQ("10.0 NM", DescribeDistance(18.52, Units::NM));
}

TEST(Units, OfHeight) {
  EXPECT_EQ("201.9 m", DescribeHeight(201.9, Units::KM));
  EXPECT_EQ("1000 ft", DescribeHeight(304.8, Units::MI));
  EXPECT_EQ("-10 ft", DescribeHeight(-3.048, Units::NM));
}

}  // namespace
}  // namespace host
