#include <gtest/gtest.h>

#include <cstddef>

#include "base/MissingValue.h"
#include "support/FailingMemory.h"
#include "support/Moments.h"
#include "track/TrackStore.h"

namespace ferolin {
namespace {

using testing_support::Fields;
using testing_support::Moment;

constexpr std::size_t POINT_SIZE = 36;

class TrackStoreTest : public testing::Test {
 protected:
  void SetUp() override { failing_memory::ForgetReallocs(); }
  void TearDown() override {
    failing_memory::RefuseMallocOf(0);
    failing_memory::RefuseRealloc(false);
  }

  static TrackPoint Point() {
    return {545.5F, 1131.0F, 4807.0F, 84.5F, 41.5F, Moment(2024, 5, 6, 7, 8, 9, 10)};
  }

  /// Point number `number` of a drive due north.
  static TrackPoint PointNumber(int number) {
    TrackPoint point = Point();
    point.latitude = static_cast<float>(number);
    return point;
  }

  void AppendNumbers(int from, int to) {
    for (int number = from; number <= to; ++number) {
      track.Append(PointNumber(number));
    }
  }

  /// The points are those of the numbers from `first` on, without a gap.
  void ExpectNumbers(int first, int count) const {
    ASSERT_EQ(track.GetPointCount(), count);
    for (int index = 0; index < count; ++index) {
      ASSERT_EQ(track.GetPoint(index)->latitude, static_cast<float>(first + index)) << index;
      ASSERT_EQ(track.GetPoint(index)->speedKmh, 41.5F) << index;
    }
  }

  TrackStore track;
};

TEST(TrackPointTest, LayoutIsThatOfTheTrackBuffer) {
  EXPECT_EQ(sizeof(TrackPoint), POINT_SIZE);
  EXPECT_EQ(offsetof(TrackPoint, altitude), 0U);
  EXPECT_EQ(offsetof(TrackPoint, longitude), 4U);
  EXPECT_EQ(offsetof(TrackPoint, latitude), 8U);
  EXPECT_EQ(offsetof(TrackPoint, course), 12U);
  EXPECT_EQ(offsetof(TrackPoint, speedKmh), 16U);
  EXPECT_EQ(offsetof(TrackPoint, time), 20U);
}

TEST_F(TrackStoreTest, FreshStoreIsEmpty) {
  EXPECT_EQ(track.GetPointCount(), 0);
  EXPECT_EQ(track.GetPoint(0), nullptr);
  EXPECT_EQ(track.GetPoint(-1), nullptr);
}

TEST_F(TrackStoreTest, AppendedPointIsKeptWhole) {
  EXPECT_EQ(track.Append(Point()), 1);
  ASSERT_EQ(track.GetPointCount(), 1);
  const TrackPoint& point = *track.GetPoint(0);
  EXPECT_EQ(point.altitude, 545.5F);
  EXPECT_EQ(point.longitude, 1131.0F);
  EXPECT_EQ(point.latitude, 4807.0F);
  EXPECT_EQ(point.course, 84.5F);
  EXPECT_EQ(point.speedKmh, 41.5F);
  EXPECT_EQ(Fields(point.time), Fields(Moment(2024, 5, 6, 7, 8, 9, 10)));
}

TEST_F(TrackStoreTest, AppendReturnsTheNewCount) {
  EXPECT_EQ(track.Append(PointNumber(1)), 1);
  EXPECT_EQ(track.Append(PointNumber(2)), 2);
  EXPECT_EQ(track.Append(PointNumber(2)), 0);
  EXPECT_EQ(track.Append(PointNumber(3)), 3);
}

TEST_F(TrackStoreTest, IndexOutOfRangeGivesNull) {
  AppendNumbers(1, 3);
  EXPECT_EQ(track.GetPoint(-1), nullptr);
  EXPECT_EQ(track.GetPoint(3), nullptr);
  EXPECT_NE(track.GetPoint(2), nullptr);
}

TEST_F(TrackStoreTest, PointWithoutAPositionIsRefused) {
  TrackPoint point = Point();
  point.latitude = MISSING_FLOAT;
  EXPECT_EQ(track.Append(point), 0);
  point = Point();
  point.longitude = MISSING_FLOAT;
  EXPECT_EQ(track.Append(point), 0);
  EXPECT_EQ(track.GetPointCount(), 0);
}

TEST_F(TrackStoreTest, PointWithANegativeOrMissingSpeedIsRefused) {
  TrackPoint point = Point();
  for (const float speed : {MISSING_FLOAT, -0.001F}) {
    point.speedKmh = speed;
    EXPECT_EQ(track.Append(point), 0) << speed;
  }
  point.speedKmh = 0;
  EXPECT_EQ(track.Append(point), 1);
}

TEST_F(TrackStoreTest, AltitudeAndCourseMayBeMissing) {
  TrackPoint point = Point();
  point.altitude = MISSING_FLOAT;
  point.course = MISSING_FLOAT;
  EXPECT_EQ(track.Append(point), 1);
}

TEST_F(TrackStoreTest, RepeatedPointIsRefused) {
  track.Append(Point());
  EXPECT_EQ(track.Append(Point()), 0);
  EXPECT_EQ(track.GetPointCount(), 1);
}

TEST_F(TrackStoreTest, DayOfTheWeekIsNotCompared) {
  track.Append(Point());
  TrackPoint point = Point();
  point.time.wDayOfWeek = 5;
  EXPECT_EQ(track.Append(point), 0);
}

TEST_F(TrackStoreTest, PointThatDiffersInAnyOtherFieldIsKept) {
  for (float TrackPoint::*field :
       {&TrackPoint::altitude, &TrackPoint::longitude, &TrackPoint::latitude, &TrackPoint::course,
        &TrackPoint::speedKmh}) {
    TrackStore store;
    store.Append(Point());
    TrackPoint point = Point();
    point.*field += 0.5F;
    EXPECT_EQ(store.Append(point), 2);
  }
  for (WORD SYSTEMTIME::*field :
       {&SYSTEMTIME::wYear, &SYSTEMTIME::wMonth, &SYSTEMTIME::wDay, &SYSTEMTIME::wHour,
        &SYSTEMTIME::wMinute, &SYSTEMTIME::wSecond, &SYSTEMTIME::wMilliseconds}) {
    TrackStore store;
    store.Append(Point());
    TrackPoint point = Point();
    ++(point.time.*field);
    EXPECT_EQ(store.Append(point), 2);
  }
}

TEST_F(TrackStoreTest, OnlyTheLastPointIsCompared) {
  AppendNumbers(1, 2);
  EXPECT_EQ(track.Append(PointNumber(1)), 3);
}

// ---- Growth ----

TEST_F(TrackStoreTest, NineHundredNinetyNinePointsFitTheFirstBlock) {
  AppendNumbers(1, 999);
  EXPECT_EQ(failing_memory::CountReallocs(), 0);
  ExpectNumbers(1, 999);
}

TEST_F(TrackStoreTest, ThousandthPointGrowsTheBlockToTwoThousand) {
  AppendNumbers(1, 1000);
  EXPECT_EQ(failing_memory::CountReallocs(), 1);
  EXPECT_EQ(failing_memory::LastReallocSize(), 2000 * POINT_SIZE);
  ExpectNumbers(1, 1000);
}

TEST_F(TrackStoreTest, TwoThousandthPointGrowsTheBlockByAnotherThousand) {
  AppendNumbers(1, 1999);
  EXPECT_EQ(failing_memory::CountReallocs(), 1);
  AppendNumbers(2000, 2000);
  EXPECT_EQ(failing_memory::CountReallocs(), 2);
  EXPECT_EQ(failing_memory::LastReallocSize(), 3000 * POINT_SIZE);
  ExpectNumbers(1, 2000);
}

TEST_F(TrackStoreTest, LongTracksAreKeptWhole) {
  AppendNumbers(1, 20000);
  ExpectNumbers(1, 20000);
  EXPECT_LE(failing_memory::CountReallocs(), 20);
}

TEST_F(TrackStoreTest, RefusedPointsDoNotGrowTheBlock) {
  AppendNumbers(1, 999);
  track.Append(PointNumber(999));
  EXPECT_EQ(failing_memory::CountReallocs(), 0);
}

// ---- Out of memory ----

TEST_F(TrackStoreTest, WithoutMemoryFromTheStartEveryPointIsRefused) {
  failing_memory::RefuseMallocOf(1000 * POINT_SIZE);
  TrackStore store;
  failing_memory::RefuseMallocOf(0);
  EXPECT_EQ(store.Append(Point()), 0);
  EXPECT_EQ(store.GetPointCount(), 0);
  EXPECT_EQ(store.GetPoint(0), nullptr);
}

TEST_F(TrackStoreTest, FirstPointAfterAFailedGrowthStillFits) {
  AppendNumbers(1, 999);
  failing_memory::RefuseRealloc(true);
  EXPECT_EQ(track.Append(PointNumber(1000)), 1000);
  EXPECT_EQ(failing_memory::CountReallocs(), 1);
  ExpectNumbers(1, 1000);
}

TEST_F(TrackStoreTest, FullStoreSlidesAlongWithTheNewestPoints) {
  AppendNumbers(1, 999);
  failing_memory::RefuseRealloc(true);
  AppendNumbers(1000, 1001);
  ExpectNumbers(2, 1000);
  AppendNumbers(1002, 3500);
  ExpectNumbers(2501, 1000);
}

TEST_F(TrackStoreTest, CountsThePointsThatMadeRoom) {
  AppendNumbers(1, 999);
  failing_memory::RefuseRealloc(true);
  AppendNumbers(1000, 1000);
  EXPECT_EQ(track.GetDroppedCount(), 0);
  AppendNumbers(1001, 3500);
  EXPECT_EQ(track.GetDroppedCount(), 2500);
}

TEST_F(TrackStoreTest, RepeatedPointDoesNotMoveAFullStore) {
  AppendNumbers(1, 999);
  failing_memory::RefuseRealloc(true);
  AppendNumbers(1000, 1100);
  track.Append(PointNumber(1100));
  ExpectNumbers(101, 1000);
}

TEST_F(TrackStoreTest, FullStoreGrowsOnceThereIsMemoryAgain) {
  AppendNumbers(1, 999);
  failing_memory::RefuseRealloc(true);
  AppendNumbers(1000, 1100);
  failing_memory::RefuseRealloc(false);
  AppendNumbers(1101, 1500);
  ExpectNumbers(101, 1400);
}

}  // namespace
}  // namespace ferolin
