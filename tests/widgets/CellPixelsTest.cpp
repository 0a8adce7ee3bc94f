#include <gtest/gtest.h>

#include <vector>

#include "PathTrack.h"
#include "widgets/CellPixels.h"

namespace ferolin {

namespace {

// 5 pixels for 1 of latitude or longitude; latitude 12, longitude 110 is pixel (60, 40). Cells are
// 1/64 wide and high. The one looked at spans longitudes 110.1875 to 110.203 and latitudes 12.1875
// to 12.203. Pixel 61 begins at longitude 110.2, pixel row 38 at latitude 12.2: at step 204.8 of the
// cell, which lies in strip 25.
constexpr LONG MARGIN = PathProjection::MARGIN;
constexpr RECT AREA = {60 - 50 - MARGIN, 40 - 30 - MARGIN, 60 + 50 + MARGIN, 40 + 30 + MARGIN};

// The pixels of the cell.
constexpr CellPixels::Pixels SOUTH_WEST = 1;
constexpr CellPixels::Pixels SOUTH_EAST = 2;
constexpr CellPixels::Pixels NORTH_WEST = 1 << 8;
constexpr CellPixels::Pixels NORTH_EAST = 2 << 8;

class CellPixelsTest : public testing::Test {
 protected:
  CellPixelsTest() {
    PathBox box;
    box.Widen(10, 100);
    box.Widen(14, 120);
    projection = PathProjection(box, AREA, 1, {0, 0});
  }

  void Add(float latitude, float longitude) {
    points.push_back(PathPointAt(latitude, longitude, 10, 0));
  }

  CellPixels Look() {
    PathCells cells;
    points.resize(PathCells::FEWEST_POINTS, points.back());
    for (std::size_t taken = 0; taken < points.size(); taken += PathCells::POINTS_AT_ONCE) {
      cells.Update(PathPoints(points, 0));
    }
    EXPECT_EQ(1U, cells.GetCells().size());
    const RECT rect = projection.Project(cells.GetBoxes()[0]);
    EXPECT_EQ(60, rect.left);
    EXPECT_EQ(61, rect.right);
    EXPECT_EQ(38, rect.top);
    EXPECT_EQ(39, rect.bottom);
    return CellPixels(cells.GetCells()[0], cells.GetStepLength(), projection, rect);
  }

  PathProjection projection;
  std::vector<TrackPoint> points;
};

TEST_F(CellPixelsTest, AreTheCornersThatARoadLeadsThrough) {
  Add(12.19F, 110.19F);
  Add(12.202F, 110.202F);
  const CellPixels pixels = Look();
  EXPECT_EQ(SOUTH_WEST | NORTH_EAST, pixels.GetSure());
  EXPECT_EQ(SOUTH_WEST | NORTH_EAST, pixels.GetPossible());
}

TEST_F(CellPixelsTest, AreAllThatARoadAroundTheCornerLeadsThrough) {
  Add(12.19F, 110.19F);
  Add(12.19F, 110.202F);
  Add(12.202F, 110.202F);
  const CellPixels pixels = Look();
  EXPECT_EQ(SOUTH_WEST | SOUTH_EAST | NORTH_EAST, pixels.GetSure());
  EXPECT_EQ(SOUTH_WEST | SOUTH_EAST | NORTH_EAST, pixels.GetPossible());
}

TEST_F(CellPixelsTest, AreOnlyPossibleNextToTheMeetingPointOfPixels) {
  Add(12.19F, 110.19F);
  Add(12.202F, 110.202F);
  // In strip 25 both ways: at steps 205 north and 202 east, and at 203 north and 206 east.
  Add(12.20005F, 110.19985F);
  Add(12.1999F, 110.2001F);
  const CellPixels pixels = Look();
  EXPECT_EQ(SOUTH_WEST | NORTH_EAST, pixels.GetSure());
  EXPECT_EQ(SOUTH_WEST | SOUTH_EAST | NORTH_WEST | NORTH_EAST, pixels.GetPossible());
}

}  // namespace

}  // namespace ferolin
