#include <gtest/gtest.h>

#include <utility>

#include "widgets/path/PathProjection.h"
#include "widgets/path/PathTrack.h"

namespace ferolin {

namespace {

constexpr LONG MARGIN = PathProjection::MARGIN;

// 100 wide and 60 high between its margins, around pixel (60, 40).
constexpr RECT AREA = {60 - 50 - MARGIN, 40 - 30 - MARGIN, 60 + 50 + MARGIN, 40 + 30 + MARGIN};

PathBox BoxOf(float south, float north, float west, float east) {
  PathBox box;
  box.Widen(south, west);
  box.Widen(north, east);
  return box;
}

void ExpectPixel(LONG x, LONG y, POINT pixel) {
  EXPECT_EQ(x, pixel.x);
  EXPECT_EQ(y, pixel.y);
}

TEST(PathProjectionTest, FitsAWideTrackByItsWidth) {
  // 20 on 100 pixels, not 4 on 60: 5 pixels for each.
  const PathProjection projection(BoxOf(10, 14, 100, 120), AREA, 1, {0, 0});
  ExpectPixel(10, 40, projection.Project(12, 100));
  ExpectPixel(110, 40, projection.Project(12, 120));
  ExpectPixel(60, 30, projection.Project(14, 110));
  ExpectPixel(60, 50, projection.Project(10, 110));
}

TEST(PathProjectionTest, FitsAHighTrackByItsHeight) {
  // 20 on 60 pixels: 3 for each.
  const PathProjection projection(BoxOf(10, 30, 100, 104), AREA, 1, {0, 0});
  ExpectPixel(60, 10, projection.Project(30, 102));
  ExpectPixel(60, 70, projection.Project(10, 102));
  ExpectPixel(54, 40, projection.Project(20, 100));
}

TEST(PathProjectionTest, CutsFractionsOff) {
  const PathProjection projection(BoxOf(10, 14, 100, 120), AREA, 1, {0, 0});
  ExpectPixel(62, 40, projection.Project(12, 110.5F));  // 62.5
  ExpectPixel(60, 37, projection.Project(12.5F, 110));  // 37.5
  // 60 - 61.25 and 40 + 5 * ... cut toward zero, not down.
  ExpectPixel(-1, 40, projection.Project(12, 97.75F));
  ExpectPixel(60, -1, projection.Project(20.25F, 110));
}

TEST(PathProjectionTest, MagnifiesAroundTheCentre) {
  const PathProjection projection(BoxOf(10, 14, 100, 120), AREA, 2, {0, 0});
  ExpectPixel(-40, 40, projection.Project(12, 100));
  ExpectPixel(60, 20, projection.Project(14, 110));
}

TEST(PathProjectionTest, PansByPixelsHoweverMagnified) {
  for (const float zoom : {0.5F, 1.0F, 1024.0F}) {
    const PathProjection projection(BoxOf(10, 14, 100, 120), AREA, zoom, {7, -9});
    ExpectPixel(67, 31, projection.Project(12, 110));
  }
}

TEST(PathProjectionTest, CrossesTheEquatorAndGreenwich) {
  const PathProjection projection(BoxOf(-2, 2, -10, 10), AREA, 1, {0, 0});
  ExpectPixel(10, 50, projection.Project(-2, -10));
  ExpectPixel(60, 40, projection.Project(0, 0));
  ExpectPixel(110, 30, projection.Project(2, 10));
}

TEST(PathProjectionTest, StaysWithinWhatADeviceContextCanCountTo) {
  constexpr LONG FARTHEST = 1 << 26;
  const PathProjection projection(BoxOf(10, 14, 100, 120), AREA, 1e30F, {0, 0});
  ExpectPixel(-FARTHEST, -FARTHEST, projection.Project(14, 100));
  ExpectPixel(FARTHEST, FARTHEST, projection.Project(10, 120));
}

TEST(PathProjectionTest, SurvivesAnyZoom) {
  for (float zoom = 1; zoom > 0; zoom *= 0.5F) {
    PathProjection(BoxOf(10, 14, 100, 120), AREA, zoom, {0, 0}).Project(12, 110);
  }
  float zoom = 1;
  for (int doubling = 0; doubling < 200; ++doubling) {
    zoom *= 2;
    const POINT pixel =
        PathProjection(BoxOf(10, 14, 100, 120), AREA, zoom, {0, 0}).Project(12, 100);
    EXPECT_LE(pixel.x, 0);
  }
}

TEST(PathProjectionTest, PansAPositionExactlyToAPixel) {
  const PathBox box = BoxOf(10, 14, 100, 120);
  for (const float zoom : {0.3F, 1.0F, 7.7F, 130.0F}) {
    for (int step = 0; step <= 20; ++step) {
      const float latitude = 10 + 0.2F * static_cast<float>(step);
      const float longitude = 100 + 0.93F * static_cast<float>(step);
      const POINT pan = PathProjection(box, AREA, zoom, {0, 0})
                            .PanTo(PathPointAt(latitude, longitude, 0, 0), {60, 40});
      ExpectPixel(60, 40, PathProjection(box, AREA, zoom, pan).Project(latitude, longitude));
    }
  }
}

TEST(PathProjectionTest, PansToAPositionBeyondTheFarthestPixels) {
  const PathBox box = BoxOf(10, 14, 100, 120);
  constexpr float ZOOM = 1 << 21;
  const POINT pan =
      PathProjection(box, AREA, ZOOM, {0, 0}).PanTo(PathPointAt(14, 120, 0, 0), {60, 40});
  EXPECT_LT(pan.x, -PathProjection::FARTHEST);
  ExpectPixel(60, 40, PathProjection(box, AREA, ZOOM, pan).Project(14, 120));
}

TEST(PathProjectionTest, PansNoFartherThanCanBeAddedUp) {
  const PathBox box = BoxOf(10, 14, 100, 120);
  const POINT pan =
      PathProjection(box, AREA, 1e30F, {0, 0}).PanTo(PathPointAt(14, 120, 0, 0), {60, 40});
  ExpectPixel(60 - (1 << 30), 40 + (1 << 30), pan);
}

TEST(PathProjectionTest, MovesEveryPlaceByThePanToThePixel) {
  const PathBox box = BoxOf(10.1F, 14.7F, 100.3F, 120.9F);
  const PathProjection before(box, AREA, 7.7F, {1000, 2000});
  const PathProjection after(box, AREA, 7.7F, {1013, 1995});
  for (int step = 0; step <= 4000; ++step) {
    const float part = static_cast<float>(step) / 4000;
    const POINT pixel = before.Project(10.1F + 4.6F * part, 100.3F + 20.6F * part);
    ExpectPixel(pixel.x + 13, pixel.y - 5,
                after.Project(10.1F + 4.6F * part, 100.3F + 20.6F * part));
  }
}

TEST(PathProjectionTest, IsTheSameOnlyWhenNothingDiffers) {
  const PathBox box = BoxOf(10, 14, 100, 120);
  const PathProjection projection(box, AREA, 1, {0, 0});
  EXPECT_TRUE(PathProjection(box, AREA, 1, {0, 0}) == projection);
  EXPECT_FALSE(PathProjection(box, AREA, 2, {0, 0}) == projection);
  EXPECT_FALSE(PathProjection(box, AREA, 1, {5, 0}) == projection);
  EXPECT_FALSE(PathProjection(box, AREA, 1, {0, 5}) == projection);
  EXPECT_FALSE(PathProjection(BoxOf(10, 14, 100, 121), AREA, 1, {0, 0}) == projection);
  EXPECT_FALSE(PathProjection(BoxOf(10, 15, 100, 120), AREA, 1, {0, 0}) == projection);
  // With the same middle and scale, but two columns or rows more.
  const RECT wider = {AREA.left - 1, AREA.top, AREA.right + 1, AREA.bottom};
  EXPECT_FALSE(PathProjection(BoxOf(10, 30, 100, 104), wider, 1, {0, 0}) ==
               PathProjection(BoxOf(10, 30, 100, 104), AREA, 1, {0, 0}));
  const RECT higher = {AREA.left, AREA.top - 1, AREA.right, AREA.bottom + 1};
  EXPECT_FALSE(PathProjection(box, higher, 1, {0, 0}) == projection);
}

TEST(PathProjectionTest, KnowsItsArea) {
  const RECT area = PathProjection(BoxOf(10, 14, 100, 120), AREA, 3, {7, 8}).GetArea();
  EXPECT_EQ(AREA.left, area.left);
  EXPECT_EQ(AREA.top, area.top);
  EXPECT_EQ(AREA.right, area.right);
  EXPECT_EQ(AREA.bottom, area.bottom);
}

TEST(PathProjectionTest, MapsABoxToTheRectangleOfItsCorners) {
  // 5 pixels for 1; latitude 12, longitude 110 is pixel (60, 40).
  const PathProjection projection(BoxOf(10, 14, 100, 120), AREA, 1, {0, 0});
  const RECT rect = projection.Project(BoxOf(11, 13, 108, 111));
  EXPECT_EQ(50, rect.left);
  EXPECT_EQ(35, rect.top);
  EXPECT_EQ(65, rect.right);
  EXPECT_EQ(45, rect.bottom);
}

TEST(PathProjectionTest, ProjectsWhatIsNearLikeAnythingElse) {
  const PathProjection projection(BoxOf(10, 14, 100, 120), AREA, 64, {-3, 8});
  for (const auto& [latitude, longitude] :
       {std::pair(12.0F, 110.0F), {12.3F, 110.7F}, {10.0F, 100.0F}, {13.9F, 119.9F}}) {
    const POINT pixel = projection.Project(latitude, longitude);
    ExpectPixel(pixel.x, pixel.y, projection.ProjectNear(PathPointAt(latitude, longitude, 0, 0)));
  }
}

}  // namespace

}  // namespace ferolin
