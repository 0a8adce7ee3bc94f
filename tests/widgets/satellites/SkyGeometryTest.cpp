#include <gtest/gtest.h>

#include "widgets/satellites/SkyGeometry.h"

namespace ferolin {

namespace {

// The area of a frame of 240 x 320: the centre is (120, 125), the radius 120 - 10.
const SkyGeometry SKY({0, 0, 240, 250});

void ExpectPoint(LONG x, LONG y, POINT point) {
  EXPECT_EQ(x, point.x);
  EXPECT_EQ(y, point.y);
}

TEST(SkyGeometry, FillsTheShorterSideButForAMargin) {
  EXPECT_EQ(120, SKY.centerX);
  EXPECT_EQ(125, SKY.centerY);
  EXPECT_EQ(110, SKY.radius);
  EXPECT_EQ(110, SkyGeometry({0, 0, 250, 240}).radius);
  EXPECT_EQ(109, SkyGeometry({0, 0, 239, 300}).radius) << "halves are cut";
}

TEST(SkyGeometry, HasTheZenithInTheCentre) {
  for (const int azimuth : {0, 90, 222, 359}) {
    ExpectPoint(120, 125, SKY.PointAt(90, azimuth));
  }
}

TEST(SkyGeometry, HasTheHorizonOnTheOuterRing) {
  ExpectPoint(120, 15, SKY.PointAt(0, 0));
  ExpectPoint(230, 125, SKY.PointAt(0, 90));
  // A little less than a right angle, and coordinates are cut.
  ExpectPoint(120, 234, SKY.PointAt(0, 180));
  ExpectPoint(10, 125, SKY.PointAt(0, 270));
}

TEST(SkyGeometry, HasNorthUpAndEastToTheRight) {
  // 60 * 110 / 90 = 73; 73 * 0.7071 = 51.6.
  ExpectPoint(171, 73, SKY.PointAt(30, 45));
  ExpectPoint(171, 176, SKY.PointAt(30, 135));
  ExpectPoint(68, 176, SKY.PointAt(30, 225));
  ExpectPoint(68, 73, SKY.PointAt(30, 315));
}

TEST(SkyGeometry, SurvivesPlacesThatAreNone) {
  EXPECT_LE(SKY.PointAt(-2147483647, 90).x, 30000);
  EXPECT_GE(SKY.PointAt(2147483647, 90).x, -30000);
  SKY.PointAt(45, -2147483647);
}

TEST(SkyGeometry, PutsNumbersOnTheSideAwayFromTheCentre) {
  ExpectPoint(100 - 7 - 12, 100 - 6, SKY.LabelCorner({100, 100}, {12, 13}));
  ExpectPoint(140 + 7, 100 - 6, SKY.LabelCorner({140, 100}, {12, 13}));
  ExpectPoint(120 + 7, 100 - 6, SKY.LabelCorner({120, 100}, {12, 13}));
}

TEST(SkyGeometry, KeepsNumbersInsideTheArea) {
  // At the rim there are 10 pixels to the edge; the number evades the dot.
  ExpectPoint(240 - 12, 120 - 5 - 13, SKY.LabelCorner({230, 120}, {12, 13}));
  ExpectPoint(0, 130 + 5, SKY.LabelCorner({10, 130}, {12, 13}));
}

TEST(SkyGeometry, KeepsNumbersOffTheLettersOfEastAndWest) {
  // 560 x 480: the centre is (280, 240), the radius 230; E has its corner at (510, 235), W at
  // (40, 235), and both are as high as the text.
  const SkyGeometry sky({0, 0, 560, 480});
  // 490 + 7 + 14 = 511, one pixel into the letter.
  ExpectPoint(497, 221, sky.LabelCorner({490, 239}, {14, 13}));
  ExpectPoint(497, 248, sky.LabelCorner({490, 240}, {14, 13}));
  ExpectPoint(497, 240 - 6, sky.LabelCorner({490, 240}, {13, 13}));  // ends before the letter
  // 70 - 7 - 14 = 49, one pixel into the letter.
  ExpectPoint(49, 221, sky.LabelCorner({70, 239}, {14, 13}));
  ExpectPoint(497, 255 - 6, sky.LabelCorner({490, 255}, {14, 13}));  // below the letter
}

TEST(SkyGeometry, LeavesRoomInTheCorners) {
  EXPECT_EQ(120 - 8, SKY.RoomBeside(13)) << "above the horizon there is the letter";
  // At 26 the horizon is sqrt(110 * 110 - 99 * 99) = 47.9 from the middle, at 39 it is 68.6.
  EXPECT_EQ(120 - 49, SKY.RoomBeside(26));
  EXPECT_EQ(120 - 70, SKY.RoomBeside(39));
  EXPECT_EQ(120 - 111, SKY.RoomBeside(125));
  EXPECT_EQ(120 - 111, SKY.RoomBeside(300));
}

}  // namespace

}  // namespace ferolin
