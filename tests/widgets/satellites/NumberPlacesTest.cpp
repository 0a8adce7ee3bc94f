#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "widgets/satellites/NumberPlaces.h"
#include "widgets/satellites/SkyGeometry.h"

namespace ferolin {

namespace {

// The area of a frame of 240 x 320: the centre is (120, 125), the radius 120 - 10.
const SkyGeometry PORTRAIT_SKY({0, 0, 240, 250});

// Figures of this text take the rows 1 to 10 of its 13, their gaps included.
constexpr SIZE TWO_DIGITS = {12, 13};

SatelliteInfo SatelliteAt(int elevation, int azimuth) {
  return {7, elevation, azimuth, 40};
}

/// Corners of the numbers of satellites, all of them with the same text.
std::vector<POINT> CornersOf(const std::vector<SatelliteInfo>& satellites) {
  NumberPlaces places(PORTRAIT_SKY);
  for (const SatelliteInfo& satellite : satellites) {
    places.AddDot(satellite);
  }
  std::vector<POINT> corners;
  corners.reserve(satellites.size());
  for (const SatelliteInfo& satellite : satellites) {
    corners.push_back(places.AddNumber(satellite, TWO_DIGITS));
  }
  return corners;
}

void ExpectCorner(LONG x, LONG y, POINT point) {
  EXPECT_EQ(x, point.x);
  EXPECT_EQ(y, point.y);
}

TEST(NumberPlaces, TellWhereTheDotIs) {
  ExpectCorner(120, 125, NumberPlaces(PORTRAIT_SKY).AddDot(SatelliteAt(90, 0)));
}

TEST(NumberPlaces, LieBesideTheirDots) {
  // 45 * 110 / 90 = 55 to the right of the centre.
  ExpectCorner(120 + 55 + 7, 125 - 6, CornersOf({SatelliteAt(45, 90)})[0]);
}

TEST(NumberPlaces, LieInLinesWhereDotsCoverEachOther) {
  const SatelliteInfo satellite = SatelliteAt(45, 90);
  const std::vector<POINT> corners = CornersOf({satellite, satellite, satellite, satellite});
  ExpectCorner(182, 119, corners[0]);
  ExpectCorner(182, 129, corners[1]);
  ExpectCorner(182, 109, corners[2]);
  ExpectCorner(182, 119, corners[3]);  // more than a line away from its dot it would mislead
}

TEST(NumberPlaces, EvadeDotsAsLittleAsTheyCan) {
  // The second dot is 10 * 110 / 90 = 12 from the centre, at (120 + 8.5, 125 - 8.5), and so in the
  // rows 111 to 120; the first one's number would take those from 120 on.
  const std::vector<POINT> corners = CornersOf({SatelliteAt(90, 0), SatelliteAt(80, 45)});
  ExpectCorner(127, 120, corners[0]);
  ExpectCorner(128 + 7, 116 - 6, corners[1]);
}

TEST(NumberPlaces, EvadeNumbersAwayFromTheCentre) {
  // The second dot is at (120, 125 - 5 * 110 / 90) = (120, 119). Its number would take the rows 114
  // to 123, the first one's takes 120 to 129.
  const std::vector<POINT> corners = CornersOf({SatelliteAt(90, 0), SatelliteAt(85, 0)});
  ExpectCorner(127, 119, corners[0]);
  ExpectCorner(127, 109, corners[1]);
}

TEST(NumberPlaces, StayInTheArea) {
  const SatelliteInfo north = SatelliteAt(0, 0);
  const std::vector<POINT> corners = CornersOf({north, north});
  ExpectCorner(127, 9, corners[0]);
  ExpectCorner(127, 19, corners[1]);  // -1 would be farther out
}

TEST(NumberPlaces, KeepOffTheLettersOfEastAndWest) {
  // 560 x 480: the centre is (280, 240), the radius 230; E has its corner at (510, 235). At
  // 7 * 230 / 90 = 17 from the horizon a number of 24 pixels ends at 280 + 213 + 7 + 24 = 524.
  const SkyGeometry sky({0, 0, 560, 480});
  const SatelliteInfo east = SatelliteAt(7, 90);
  NumberPlaces places(sky);
  places.AddDot(east);
  const POINT first = places.AddNumber(east, {24, 13});
  const POINT second = places.AddNumber(east, {24, 13});
  const POINT third = places.AddNumber(east, {24, 13});
  EXPECT_FALSE(sky.CoversLetter(first, {24, 13}));
  EXPECT_FALSE(sky.CoversLetter(second, {24, 13}));
  EXPECT_GE(std::abs(first.y - second.y), 10);
  // What is free for it would be on the letter.
  ExpectCorner(first.x, first.y, third);
}

}  // namespace

}  // namespace ferolin
