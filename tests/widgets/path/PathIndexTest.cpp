#include <gtest/gtest.h>

#include <limits>
#include <span>
#include <vector>

#include "base/MissingValue.h"
#include "support/FailingMemory.h"
#include "widgets/path/PathIndex.h"
#include "widgets/path/PathTrack.h"

namespace ferolin {

namespace {

class PathIndexTest : public testing::Test {
 protected:
  ~PathIndexTest() override { failing_memory::RefuseRealloc(false); }

  void Add(float latitude, float longitude) {
    points.push_back(PathPointAt(latitude, longitude, 10, 0));
  }
  void AddUnknown() { Add(MISSING_FLOAT, MISSING_FLOAT); }
  void Update() {
    index.Update(PathPoints(std::span(points).subspan(static_cast<std::size_t>(lost)), lost));
  }
  void ExpectPosition(float latitude, float longitude, int number) {
    const PathIndex::Position position = index.GetPositions(number, number + 1).front();
    EXPECT_EQ(latitude, position.latitude);
    EXPECT_EQ(longitude, position.longitude);
  }

  std::vector<TrackPoint> points;
  int lost = 0;
  PathIndex index;
};

void ExpectBox(float south, float north, float west, float east, const PathBox& box) {
  EXPECT_EQ(south, box.minLatitude);
  EXPECT_EQ(north, box.maxLatitude);
  EXPECT_EQ(west, box.minLongitude);
  EXPECT_EQ(east, box.maxLongitude);
}

TEST_F(PathIndexTest, HoldsThePositionsOfAllPoints) {
  Add(10, 20);
  Add(11, 21);
  Update();
  Add(12, 22);
  Update();
  EXPECT_EQ(0, index.GetFirst());
  EXPECT_EQ(3, index.GetEnd());
  ExpectPosition(10, 20, 0);
  ExpectPosition(11, 21, 1);
  ExpectPosition(12, 22, 2);
}

TEST_F(PathIndexTest, BeginsWithTheFirstPointThatHasAPosition) {
  AddUnknown();
  Update();
  EXPECT_EQ(index.GetEnd(), index.GetFirst());
  AddUnknown();
  Add(10, 20);
  Update();
  EXPECT_EQ(2, index.GetFirst());
  EXPECT_EQ(3, index.GetEnd());
  ExpectPosition(10, 20, 2);
  ExpectBox(10, 10, 20, 20, index.GetBlock(0, 0).box);
}

TEST_F(PathIndexTest, LeavesPointsWithoutPositionAtTheOneBefore) {
  Add(10, 20);
  AddUnknown();
  Add(MISSING_FLOAT, 77);
  Add(12, 23);
  Update();
  ExpectPosition(10, 20, 1);
  ExpectPosition(10, 20, 2);
  ExpectPosition(12, 23, 3);
  ExpectBox(10, 12, 20, 23, index.GetBlock(0, 0).box);
  EXPECT_EQ(3, index.GetBlock(0, 0).step);
}

TEST_F(PathIndexTest, HasTheLineToTheNextBlockInABlock) {
  for (int number = 0; number < 17; ++number) {
    Add(10, 20 + static_cast<float>(number));
  }
  Add(14, 36);
  Update();
  ExpectBox(10, 10, 20, 36, index.GetBlock(0, 0).box);
  EXPECT_EQ(1, index.GetBlock(0, 0).step);
  ExpectBox(10, 14, 36, 36, index.GetBlock(0, 1).box);
  EXPECT_EQ(4, index.GetBlock(0, 1).step);
  ExpectBox(10, 14, 20, 36, index.GetBlock(1, 0).box);
  EXPECT_EQ(4, index.GetBlock(1, 0).step);
  ExpectBox(10, 14, 20, 36, index.GetBlock(PathIndex::LEVELS - 1, 0).box);
}

TEST_F(PathIndexTest, HasALineOverAGapInTheBlockOfTheGapsEnd) {
  Add(10, 20);
  for (int number = 1; number < 20; ++number) {
    AddUnknown();
  }
  Add(11, 25);
  Update();
  ExpectBox(10, 10, 20, 20, index.GetBlock(0, 0).box);
  ExpectBox(10, 11, 20, 25, index.GetBlock(0, 1).box);
  EXPECT_EQ(5, index.GetBlock(0, 1).step);
}

TEST_F(PathIndexTest, BeginsLaterWhenTheOldestPointsAreLost) {
  Add(10, 20);
  AddUnknown();
  AddUnknown();
  Add(12, 22);
  Add(13, 23);
  Update();
  lost = 1;
  Update();
  // The points at 10 North that have no position of their own go with the one that had.
  EXPECT_EQ(3, index.GetFirst());
  ExpectPosition(12, 22, 3);
  Add(14, 24);
  Update();
  EXPECT_EQ(6, index.GetEnd());
  ExpectPosition(14, 24, 5);
}

TEST_F(PathIndexTest, KeepsNumbersWhenPointsWereLostBeforeItSawThem) {
  Add(10, 20);
  Update();
  Add(77, 77);
  Add(12, 22);
  Add(13, 23);
  lost = 2;
  Update();
  EXPECT_EQ(2, index.GetFirst());
  EXPECT_EQ(4, index.GetEnd());
  ExpectPosition(12, 22, 2);
  ExpectPosition(13, 23, 3);
  EXPECT_EQ(1, index.GetBlock(0, 0).step);
}

TEST_F(PathIndexTest, KnowsTheMeanStep) {
  Update();
  EXPECT_EQ(0, index.GetMeanStep());
  Add(10, 20);
  Add(10.25F, 20);
  Add(10.25F, 20.5F);
  Add(10.25F, 20.5F);
  Update();
  EXPECT_EQ(0.75 / 4, index.GetMeanStep());
  Add(50, -100);  // counts as 1
  Update();
  EXPECT_EQ(1.75 / 5, index.GetMeanStep());
}

TEST_F(PathIndexTest, StartsAgainWithAShorterTrack) {
  Add(10, 20);
  Add(11, 21);
  Add(12, 22);
  Update();
  points.clear();
  Add(30, 40);
  Add(30, 40);
  Update();
  EXPECT_EQ(0, index.GetFirst());
  EXPECT_EQ(2, index.GetEnd());
  ExpectPosition(30, 40, 0);
  ExpectBox(30, 30, 40, 40, index.GetBlock(0, 0).box);
  EXPECT_EQ(0, index.GetMeanStep());
}

TEST_F(PathIndexTest, IsOfNoUseWithPositionsThatAreNoNumbers) {
  for (const float number :
       {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN()}) {
    points.clear();
    Update();
    Add(10, 20);
    Add(number, 20);
    Update();
    EXPECT_FALSE(index.IsUsable());
    Add(10, 20);
    Update();
    EXPECT_FALSE(index.IsUsable());
  }
}

TEST_F(PathIndexTest, IsOfNoUseWithoutMemoryUntilTheNextTrack) {
  failing_memory::RefuseRealloc(true);
  Add(10, 20);
  Add(11, 21);
  Update();
  EXPECT_FALSE(index.IsUsable());
  failing_memory::RefuseRealloc(false);
  points.pop_back();
  Update();
  EXPECT_TRUE(index.IsUsable());
  ExpectPosition(10, 20, 0);
}

}  // namespace

}  // namespace ferolin
