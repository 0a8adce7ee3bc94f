#include <gtest/gtest.h>

#include <limits>
#include <span>
#include <vector>

#include "support/FailingMemory.h"
#include "widgets/path/PathIndex.h"
#include "widgets/path/PathTrack.h"

namespace ferolin {

namespace {

constexpr int BLOCK = 64;

void ExpectBox(float south, float north, float west, float east, const PathBox& box) {
  EXPECT_EQ(south, box.minLatitude);
  EXPECT_EQ(north, box.maxLatitude);
  EXPECT_EQ(west, box.minLongitude);
  EXPECT_EQ(east, box.maxLongitude);
}

void ExpectNoLimits(const PathBox& box) {
  constexpr float FARTHEST = std::numeric_limits<float>::max();
  ExpectBox(-FARTHEST, FARTHEST, -FARTHEST, FARTHEST, box);
}

class PathIndexTest : public testing::Test {
 protected:
  ~PathIndexTest() override { failing_memory::RefuseRealloc(false); }

  /// Points to the north-east, 1 apart each way; point 0 lies at 100 north and 500 east.
  void AddUpTo(int count) {
    for (int number = static_cast<int>(points.size()); number < count; ++number) {
      points.push_back(PathPointAt(100 + static_cast<float>(number),
                                   500 + static_cast<float>(number), 10, number));
    }
  }
  void Update() {
    index.Update(PathPoints(std::span(points).subspan(static_cast<std::size_t>(dropped)), dropped));
  }

  std::vector<TrackPoint> points;
  int dropped = 0;
  PathIndex index;
};

TEST_F(PathIndexTest, HasABoxAroundEachCompleteBlockAndTheLineOutOfIt) {
  AddUpTo(2 * BLOCK + 1);
  Update();
  ExpectBox(100, 164, 500, 564, index.GetBox(0));
  ExpectBox(100, 164, 500, 564, index.GetBox(BLOCK - 1));
  ExpectBox(164, 228, 564, 628, index.GetBox(BLOCK));
}

TEST_F(PathIndexTest, HasTheSameBoxesInOneGoAndPointByPoint) {
  for (int count = 1; count <= 2 * BLOCK + 1; ++count) {
    AddUpTo(count);
    Update();
    Update();
  }
  ExpectBox(100, 164, 500, 564, index.GetBox(0));
  ExpectBox(164, 228, 564, 628, index.GetBox(BLOCK));
}

TEST_F(PathIndexTest, HasNoLimitsForABlockUntilTheLineOutOfItIsKnown) {
  AddUpTo(BLOCK);
  Update();
  ExpectNoLimits(index.GetBox(0));
  AddUpTo(BLOCK + 1);
  Update();
  ExpectBox(100, 164, 500, 564, index.GetBox(0));
  ExpectNoLimits(index.GetBox(BLOCK));
}

TEST_F(PathIndexTest, TellsWhereBlocksEnd) {
  EXPECT_EQ(BLOCK, PathIndex::EndOfBlock(0));
  EXPECT_EQ(BLOCK, PathIndex::EndOfBlock(BLOCK - 1));
  EXPECT_EQ(2 * BLOCK, PathIndex::EndOfBlock(BLOCK));
}

TEST_F(PathIndexTest, HasNoLimitsForPositionsThatAreNoNumbers) {
  constexpr float NAN_POSITION = std::numeric_limits<float>::quiet_NaN();
  AddUpTo(4 * BLOCK + 1);
  points[10].latitude = NAN_POSITION;
  points[2 * BLOCK].longitude = NAN_POSITION;
  Update();
  ExpectNoLimits(index.GetBox(0));
  ExpectNoLimits(index.GetBox(BLOCK));
  ExpectNoLimits(index.GetBox(2 * BLOCK));
  ExpectBox(292, 356, 692, 756, index.GetBox(3 * BLOCK));
}

TEST_F(PathIndexTest, KeepsItsBoxesWhenTheTrackDropsPoints) {
  AddUpTo(BLOCK);
  Update();
  dropped = 20;
  AddUpTo(2 * BLOCK + 1);
  Update();
  ExpectBox(100, 164, 500, 564, index.GetBox(dropped));
  ExpectBox(164, 228, 564, 628, index.GetBox(BLOCK));
}

TEST_F(PathIndexTest, PassesOverPointsThatWereDroppedUnseen) {
  AddUpTo(10);
  Update();
  dropped = 3 * BLOCK + 20;
  AddUpTo(5 * BLOCK);
  Update();
  ExpectBox(312, 356, 712, 756, index.GetBox(dropped));
}

TEST_F(PathIndexTest, StartsAgainWithAShorterTrack) {
  AddUpTo(3 * BLOCK);
  Update();
  points.erase(points.begin(), points.begin() + BLOCK);
  points.resize(BLOCK + 1);
  Update();
  ExpectBox(164, 228, 564, 628, index.GetBox(0));
  ExpectNoLimits(index.GetBox(BLOCK));
}

TEST_F(PathIndexTest, HasNoLimitsWithoutMemory) {
  failing_memory::RefuseRealloc(true);
  AddUpTo(2 * BLOCK);
  Update();
  ExpectNoLimits(index.GetBox(0));
  failing_memory::RefuseRealloc(false);
  AddUpTo(3 * BLOCK);
  Update();
  ExpectBox(100, 164, 500, 564, index.GetBox(0));
  ExpectBox(164, 228, 564, 628, index.GetBox(BLOCK));
}

}  // namespace

}  // namespace ferolin
