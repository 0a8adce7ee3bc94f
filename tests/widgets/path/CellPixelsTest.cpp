#include <gtest/gtest.h>

#include <vector>

#include "widgets/path/CellPixels.h"
#include "widgets/path/PathTrack.h"

namespace ferolin {

namespace {

// 5 pixels for 1 of latitude or longitude; latitude 12, longitude 110 is pixel (60, 40). Cells are
// 1/64 wide and high. The one looked at spans longitudes 110.1875 to 110.203 and latitudes 12.1875
// to 12.203. Pixel 61 begins at longitude 110.2, pixel row 38 at latitude 12.2: at step 204.8 of
// the cell, which lies in strip 51: that of steps 204 to 207.
constexpr float STEP = 1 / 64.0F / 256;
constexpr LONG MARGIN = PathProjection::MARGIN;
constexpr RECT AREA = {60 - 50 - MARGIN, 40 - 30 - MARGIN, 60 + 50 + MARGIN, 40 + 30 + MARGIN};

// The pixels of the cell.
constexpr CellPixels::Pixels SOUTH_WEST = 1;
constexpr CellPixels::Pixels SOUTH_EAST = 2;
constexpr CellPixels::Pixels NORTH_WEST = 1 << 8;
constexpr CellPixels::Pixels NORTH_EAST = 2 << 8;

class CellPixelsTest : public testing::Test {
 protected:
  CellPixelsTest() { LookAround(12, 110); }

  /// Pixel (60, 40) becomes this place.
  void LookAround(float latitude, float longitude) {
    PathBox box;
    box.Widen(latitude - 2, longitude - 10);
    box.Widen(latitude + 2, longitude + 10);
    projection = PathProjection(box, AREA, 1, {0, 0});
  }

  void Add(float latitude, float longitude) {
    points.push_back(PathPointAt(latitude, longitude, 10, 0));
  }

  CellPixels Look() {
    PathCells cells;
    // So far away that cells are as large as said.
    Add(points.back().latitude + 20, points.back().longitude);
    points.resize(PathCells::FEWEST_POINTS, points.back());
    for (std::size_t taken = 0; taken < points.size(); taken += PathCells::POINTS_AT_ONCE) {
      cells.Update(PathPoints(points, 0));
    }
    EXPECT_EQ(2U, cells.GetCells().size());
    const RECT rect = projection.Project(cells.GetBoxes()[0]);
    EXPECT_EQ(60, rect.left);
    EXPECT_EQ(61, rect.right);
    EXPECT_EQ(38, rect.top);
    EXPECT_EQ(39, rect.bottom);
    return CellPixels(cells.GetCells()[0], cells.GetStepLength(), projection, rect);
  }

  /// All pixels that are possible are sure, and are these.
  void ExpectNoDoubt(CellPixels::Pixels expected) {
    const CellPixels pixels = Look();
    EXPECT_EQ(expected, pixels.GetSure());
    EXPECT_EQ(expected, pixels.GetPossible());
  }

  PathProjection projection;
  std::vector<TrackPoint> points;
};

TEST_F(CellPixelsTest, AreTheCornersThatARoadLeadsThrough) {
  Add(12.19F, 110.19F);
  Add(12.202F, 110.202F);
  ExpectNoDoubt(SOUTH_WEST | NORTH_EAST);
}

TEST_F(CellPixelsTest, AreAllThatARoadAroundTheCornerLeadsThrough) {
  Add(12.19F, 110.19F);
  Add(12.19F, 110.202F);
  Add(12.202F, 110.202F);
  ExpectNoDoubt(SOUTH_WEST | SOUTH_EAST | NORTH_EAST);
}

TEST_F(CellPixelsTest, AreOnlyPossibleNextToTheMeetingPointOfPixels) {
  Add(12.19F, 110.19F);
  Add(12.202F, 110.202F);
  // At steps 204 north and 206 east, and at 206 north and 204 east. Step 204 is cut.
  Add(12.19998F, 110.2001F);
  Add(12.2001F, 110.19998F);
  const CellPixels pixels = Look();
  EXPECT_EQ(SOUTH_WEST | NORTH_EAST, pixels.GetSure());
  EXPECT_EQ(SOUTH_WEST | SOUTH_EAST | NORTH_WEST | NORTH_EAST, pixels.GetPossible());
}

TEST_F(CellPixelsTest, AreThoseThatColumnsAndRowsAgreeOn) {
  Add(12.1875F + 100.5F * STEP, 110.1875F + 100.5F * STEP);
  // In the row of strips that is cut, but in no such column.
  Add(12.1875F + 205.5F * STEP, 110.1875F + 100.5F * STEP);
  Add(12.1875F + 205.5F * STEP, 110.1875F + 220.5F * STEP);
  ExpectNoDoubt(SOUTH_WEST | NORTH_WEST | NORTH_EAST);
}

TEST_F(CellPixelsTest, AreSureWherePositionsAreCoarse) {
  // Floats are multiples of 4 steps from 2048 on, and of 8 from 4096 on.
  LookAround(5542, 3740);
  Add(5542.1875F + 200 * STEP, 3740.1875F + 208 * STEP);
  Add(5542.1875F + 208 * STEP, 3740.1875F + 204 * STEP);
  ExpectNoDoubt(SOUTH_EAST | NORTH_WEST);
}

TEST_F(CellPixelsTest, AreSureWherePositionsAreCoarseInTheSouthAndWest) {
  LookAround(-5542, -3740);
  Add(-5541.8125F + 200 * STEP, -3739.8125F + 208 * STEP);
  Add(-5541.8125F + 208 * STEP, -3739.8125F + 204 * STEP);
  ExpectNoDoubt(SOUTH_EAST | NORTH_WEST);
}

TEST_F(CellPixelsTest, AreSureOfStripsWithRoomForOnePosition) {
  // Only step 204 of its strip, which is cut at 204.8.
  LookAround(3742, 3740);
  Add(3742.1875F + 204 * STEP, 3740.1875F + 204 * STEP);
  Add(3742.1875F + 204 * STEP, 3740.1875F + 220 * STEP);
  Add(3742.1875F + 208 * STEP, 3740.1875F + 204 * STEP);
  ExpectNoDoubt(SOUTH_WEST | SOUTH_EAST | NORTH_WEST);
}

TEST_F(CellPixelsTest, TellWhichPartOfAStripIsMeantWherePositionsAreFiner) {
  // From 1024 on floats are multiples of 2 steps: 204 and 206 lie on either side of the edge.
  LookAround(1502, 1740);
  Add(1502.1875F + 204 * STEP, 1740.1875F + 206 * STEP);
  Add(1502.1875F + 206 * STEP, 1740.1875F + 100 * STEP);
  const CellPixels pixels = Look();
  EXPECT_EQ(SOUTH_EAST | NORTH_WEST, pixels.GetPossible() & (SOUTH_EAST | NORTH_WEST));
  EXPECT_EQ(0U, pixels.GetSure() & (SOUTH_WEST | NORTH_EAST));
}

TEST_F(CellPixelsTest, TakePositionsAsFineAsTheyAreAtTheEdgeNearerToZero) {
  // The cell begins at -1024, and east of there floats are multiples of 1 step. The edge is at
  // 162.8.
  LookAround(12, -1024 - 3114 * STEP);
  Add(12.19F, -1024 + 163 * STEP);
  Add(12.202F, -1024 + 100 * STEP);
  EXPECT_EQ(SOUTH_EAST | NORTH_WEST, Look().GetSure());
}

}  // namespace

}  // namespace ferolin
