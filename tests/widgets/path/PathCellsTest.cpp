#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

#include "base/MissingValue.h"
#include "support/FailingMemory.h"
#include "widgets/path/PathCells.h"
#include "widgets/path/PathTrack.h"

namespace ferolin {

namespace {

// A track that spreads over 20 has cells that are 1/64 wide and high at first.

class PathCellsTest : public testing::Test {
 protected:
  ~PathCellsTest() override { failing_memory::RefuseRealloc(false); }

  void Add(float latitude, float longitude) {
    points.push_back(PathPointAt(latitude, longitude, 10, 0));
  }
  /// After as many updates as points need.
  void Update() {
    for (std::size_t taken = 0; taken <= points.size(); taken += PathCells::POINTS_AT_ONCE) {
      cells.Update(PathPoints(points, 0));
    }
  }
  /// Standing still, until the track is long enough.
  void Rest() { points.resize(std::max(points.size(), LONG_ENOUGH), points.back()); }
  /// The same in another cell, 20 away.
  void RestFarAway() {
    Add(points.back().latitude + 20, points.back().longitude);
    Rest();
  }
  bool HoldAll() const { return cells.Hold(static_cast<int>(points.size())); }
  /// Of all points so far.
  const PathCells::Cell& TheCell() {
    RestFarAway();
    Update();
    EXPECT_TRUE(HoldAll());
    EXPECT_EQ(2U, cells.GetCells().size());
    return cells.GetCells()[0];
  }
  void ExpectStepLength(double length, float extent) {
    points.clear();
    Update();
    Add(0, 0);
    Add(extent / 2, extent);
    Rest();
    Update();
    EXPECT_EQ(length, cells.GetStepLength());
  }

  static constexpr std::size_t LONG_ENOUGH = 50'000;

  std::vector<TrackPoint> points;
  PathCells cells;
};

void ExpectExtent(int low, int high, const PathCells::Extent& extent) {
  EXPECT_EQ(low, extent.low);
  EXPECT_EQ(high, extent.high);
}

TEST_F(PathCellsTest, AreNoneOfAShortTrack) {
  Add(10, 20);
  Rest();
  points.pop_back();
  Update();
  EXPECT_FALSE(HoldAll());
  EXPECT_TRUE(cells.GetCells().empty());
  points.push_back(points.back());
  Update();
  EXPECT_TRUE(HoldAll());
}

TEST_F(PathCellsTest, TakeInALongTrackLittleByLittle) {
  Add(10, 20);
  Rest();
  for (int taken = 32; taken < 50'000; taken += 32) {
    cells.Update(PathPoints(points, 0));
    EXPECT_TRUE(cells.Hold(taken));
  }
  EXPECT_FALSE(HoldAll());
  cells.Update(PathPoints(points, 0));
  EXPECT_TRUE(HoldAll());
}

TEST_F(PathCellsTest, TellWhereInACellThePointsLie) {
  Add(10, 20);
  Add(10 + 1 / 256.0F, 20 + 1 / 128.0F);  // a quarter up, half to the east
  const PathCells::Cell& cell = TheCell();
  EXPECT_EQ(1 / 64.0 / 256, cells.GetStepLength());
  EXPECT_EQ(20 * 64, cell.column);
  EXPECT_EQ(10 * 64, cell.row);
  const PathBox& box = cells.GetBoxes()[0];
  EXPECT_EQ(10, box.minLatitude);
  EXPECT_EQ(10 + 1 / 256.0F, box.maxLatitude);
  EXPECT_EQ(20, box.minLongitude);
  EXPECT_EQ(20 + 1 / 128.0F, box.maxLongitude);
  ExpectExtent(0, 0, cell.columns.Join(0, 1));
  ExpectExtent(64, 64, cell.columns.Join(32, 33));
  ExpectExtent(0, 0, cell.rows.Join(0, 1));
  ExpectExtent(128, 128, cell.rows.Join(16, 17));
  EXPECT_TRUE(cell.columns.Join(16, 17).IsEmpty());
  EXPECT_TRUE(cell.rows.Join(32, 33).IsEmpty());
}

TEST_F(PathCellsTest, JoinThePointsOfAStrip) {
  Add(10 + 1 / 256.0F, 20);
  Add(10 + 1 / 128.0F, 20 + 1 / 16384.0F);
  ExpectExtent(64, 128, TheCell().columns.Join(0, 1));
}

TEST_F(PathCellsTest, LieOnBothSidesOfTheEquatorAndOfGreenwich) {
  Add(-1 / 128.0F, -1 / 256.0F);
  const PathCells::Cell& cell = TheCell();
  EXPECT_EQ(-1, cell.column);
  EXPECT_EQ(-1, cell.row);
  ExpectExtent(128, 128, cell.columns.Join(48, 49));
  ExpectExtent(192, 192, cell.rows.Join(32, 33));
}

TEST_F(PathCellsTest, AreNoMoreForARoadThatIsDrivenAgain) {
  for (int lap = 0; lap < 50; ++lap) {
    for (int place = 0; place < 1'000; ++place) {
      Add(55, static_cast<float>(place) / 50);
    }
  }
  Update();
  EXPECT_EQ(1'000U, cells.GetCells().size());
}

TEST_F(PathCellsTest, AreAsFineAsTheTracksExtentNeeds) {
  // 2,048 of them, of 256 steps, are as wide as the track or wider, but none is less than 1/256.
  ExpectStepLength(1 / 65'536.0, 0.01F);
  ExpectStepLength(1 / 65'536.0, 8);
  ExpectStepLength(1 / 32'768.0, 8.01F);
  ExpectStepLength(1 / 32'768.0, 16);
  ExpectStepLength(1 / 16'384.0, 16.01F);
  ExpectStepLength(1 / 16.0, 20'000 - 1);
}

TEST_F(PathCellsTest, BecomeLargerWhenThereAreTooMany) {
  // 2,000 columns of 5, and one more.
  for (int place = 0; place <= 10'000; ++place) {
    Add(static_cast<float>(place % 5) / 64, static_cast<float>(place / 5) / 64);
  }
  Rest();
  Update();
  EXPECT_EQ(1 / 32.0 / 256, cells.GetStepLength());
  EXPECT_EQ(3U * 1'000 + 1, cells.GetCells().size());
  // Of 2 x 2 smaller ones with a point in each lower left corner.
  const PathCells::Cell& cell = cells.GetCells()[0];
  ExpectExtent(0, 128, cell.columns.Join(0, 1));
  ExpectExtent(0, 128, cell.columns.Join(32, 33));
  ExpectExtent(0, 128, cell.rows.Join(0, 1));
  ExpectExtent(0, 128, cell.rows.Join(32, 33));
  EXPECT_TRUE(cell.columns.Join(1, 32).IsEmpty());
  EXPECT_TRUE(cell.rows.Join(33, 64).IsEmpty());
  EXPECT_EQ(1 / 64.0F, cells.GetBoxes()[0].maxLatitude);
  EXPECT_EQ(1 / 64.0F, cells.GetBoxes()[0].maxLongitude);
}

TEST_F(PathCellsTest, PassOverPointsWithoutAPosition) {
  Add(MISSING_FLOAT, MISSING_FLOAT);
  Add(10, 20);
  EXPECT_EQ(20 * 64, TheCell().column);
}

TEST_F(PathCellsTest, StartAgainWithAShorterTrack) {
  Add(10, 21);
  Add(10, 20);
  Rest();
  points.push_back(points.back());
  Update();
  EXPECT_EQ(2U, cells.GetCells().size());
  points.erase(points.begin());
  Update();
  EXPECT_TRUE(HoldAll());
  EXPECT_EQ(1U, cells.GetCells().size());
}

TEST_F(PathCellsTest, AreGivenUpWhenTheTrackLosesItsOldestPoints) {
  Add(10, 20);
  TheCell();
  cells.Update(PathPoints(points, 1));
  EXPECT_FALSE(cells.Hold(50'001));
  EXPECT_TRUE(cells.GetCells().empty());
}

TEST_F(PathCellsTest, AreGivenUpForPositionsOutOfThisWorld) {
  for (const float longitude :
       {20'000.0F, -99'999.0F, 1e9F, -1e9F, std::numeric_limits<float>::infinity(),
        std::numeric_limits<float>::quiet_NaN()}) {
    points.clear();
    Update();
    Add(10, longitude);
    Rest();
    Update();
    EXPECT_FALSE(HoldAll());
    EXPECT_TRUE(cells.GetCells().empty());
  }
}

TEST_F(PathCellsTest, AreGivenUpWithoutMemory) {
  failing_memory::RefuseRealloc(true);
  Add(10, 20);
  Rest();
  Update();
  EXPECT_FALSE(HoldAll());
  EXPECT_TRUE(cells.GetCells().empty());
}

}  // namespace

}  // namespace ferolin
