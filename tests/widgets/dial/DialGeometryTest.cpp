#include <gtest/gtest.h>

#include "widgets/dial/DialGeometry.h"

namespace ferolin {

namespace {

constexpr double DEGREE = 3.14159265358979 / 180;
constexpr SIZE PICTURE = {480, 456};

TEST(DialGeometry, SweepsClockwiseFromTheLeftToTheRight) {
  EXPECT_NEAR(197.5 * DEGREE, DialGeometry::AngleOf(0), 1e-6);
  EXPECT_NEAR(90 * DEGREE, DialGeometry::AngleOf(110), 1e-6);
  EXPECT_NEAR(-17.5 * DEGREE, DialGeometry::AngleOf(220), 1e-6);
  // 215 degrees for 220 km/h: 60 km/h lie 58.636 degrees after the start.
  EXPECT_NEAR((197.5 - 58.6364) * DEGREE, DialGeometry::AngleOf(60), 1e-5);
}

TEST(DialGeometry, EndsWithBothEndsOfTheScale) {
  EXPECT_TRUE(DialGeometry::IsOnScale(0));
  EXPECT_TRUE(DialGeometry::IsOnScale(220));
  EXPECT_FALSE(DialGeometry::IsOnScale(-0.1));
  EXPECT_FALSE(DialGeometry::IsOnScale(220.1));
}

TEST(DialGeometry, IsACircleOverTheWholeWidth) {
  const DialGeometry dial({0, 25, 240, 253});
  EXPECT_EQ(120, dial.centerX);
  EXPECT_EQ(145, dial.centerY);
  EXPECT_EQ(120, dial.radius);
  EXPECT_EQ(227, dial.faceBottom);  // 145 + 120 * 11 / 16
  const DialGeometry odd({10, 15, 265, 230});
  EXPECT_EQ(137, odd.centerX);  // 275 / 2
  EXPECT_EQ(142, odd.centerY);  // 15 + 255 / 2
  EXPECT_EQ(127, odd.radius);
}

TEST(DialGeometry, CutsPointsToWholePixels) {
  const DialGeometry dial({0, 25, 240, 253});
  const POINT top = dial.PointAt(90 * DEGREE, 100);
  EXPECT_EQ(120, top.x);
  EXPECT_EQ(45, top.y);
  // 120 + 100 cos 30 = 206.6, 145 - 100 sin 30.1 = 94.85
  EXPECT_EQ(206, dial.PointAt(30 * DEGREE, 100).x);
  EXPECT_EQ(94, dial.PointAt(30.1 * DEGREE, 100).y);
}

struct RectCase {
  SIZE frame;
  RECT expected;
};

class DialRectOf : public testing::TestWithParam<RectCase> {};

TEST_P(DialRectOf, FollowsTheShapeOfTheFrame) {
  const RECT rect = DialRect(GetParam().frame, PICTURE);
  EXPECT_EQ(GetParam().expected.left, rect.left);
  EXPECT_EQ(GetParam().expected.top, rect.top);
  EXPECT_EQ(GetParam().expected.right, rect.right);
  EXPECT_EQ(GetParam().expected.bottom, rect.bottom);
}

INSTANTIATE_TEST_SUITE_P(Frames, DialRectOf,
                         testing::Values(
                             // 25 + 240 * 456 / 480 = 253
                             RectCase{{240, 320}, {0, 25, 240, 253}},
                             RectCase{{480, 800}, {0, 25, 480, 481}},
                             // (240 - 25) * 480 / 456 = 226.3
                             RectCase{{320, 240}, {0, 15, 226, 230}},
                             // (480 - 25) * 480 / 456 = 478.9
                             RectCase{{800, 480}, {0, 15, 478, 470}},
                             // Square frames count as landscape. The whole dial fits them.
                             RectCase{{240, 240}, {0, 15, 226, 230}},
                             RectCase{{320, 320}, {0, 15, 310, 310}},
                             RectCase{{480, 480}, {0, 15, 478, 470}}));

TEST(DialGeometry, TakesAPictureWithoutSizeAsOnePixel) {
  const RECT rect = DialRect({320, 240}, {0, 0});
  EXPECT_EQ(215, rect.right);
}

}  // namespace

}  // namespace ferolin
