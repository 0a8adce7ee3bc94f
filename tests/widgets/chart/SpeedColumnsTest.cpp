#include <gtest/gtest.h>

#include <vector>

#include "widgets/chart/SpeedColumns.h"

namespace ferolin {

namespace {

std::vector<TrackPoint> Points(const std::vector<float>& speeds) {
  std::vector<TrackPoint> points;
  for (const float kmh : speeds) {
    points.push_back({0, 0, 0, 0, kmh, {}});
  }
  return points;
}

class SpeedColumnsTest : public testing::Test {
 protected:
  void Add(int x, const std::vector<float>& speeds) { EXPECT_TRUE(columns.Add(x, Points(speeds))); }

  void ExpectLast(int x, float minimum, float maximum) const {
    const SpeedColumns::Column& column = columns.Get().back();
    EXPECT_EQ(x, column.x);
    EXPECT_EQ(minimum, column.minimum);
    EXPECT_EQ(maximum, column.maximum);
  }

  SpeedColumns columns;
};

TEST_F(SpeedColumnsTest, KeepTheLowestAndTheHighestSpeed) {
  Add(7, {30, 10.5F, 20, 40.25F, 15});
  ExpectLast(7, 10.5F, 40.25F);
  Add(6, {3});
  ExpectLast(6, 3, 3);
}

TEST_F(SpeedColumnsTest, CountMissingAndNegativeSpeedsAsZero) {
  Add(3, {-9999, 12});
  ExpectLast(3, 0, 12);
  Add(2, {-9999, -0.5F, -9999});
  ExpectLast(2, 0, 0);
  Add(1, {12, -0.0F, 5});
  ExpectLast(1, 0, 12);
}

TEST_F(SpeedColumnsTest, KnowTheMaximumOfAll) {
  EXPECT_EQ(0, columns.GetMaximum());
  Add(2, {10, 20});
  Add(1, {15, 90});
  Add(0, {60});
  EXPECT_EQ(90, columns.GetMaximum());
  columns.Clear();
  EXPECT_EQ(0, columns.GetMaximum());
  EXPECT_TRUE(columns.Get().empty());
}

TEST_F(SpeedColumnsTest, AreAsManyAsAreAdded) {
  for (int x = 2500; x >= 0; --x) {
    Add(x, {static_cast<float>(x)});
  }
  ASSERT_EQ(2501U, columns.Get().size());
  EXPECT_EQ(2500, columns.Get().front().x);
  EXPECT_EQ(1500, columns.Get()[1000].maximum);
}

}  // namespace

}  // namespace ferolin
