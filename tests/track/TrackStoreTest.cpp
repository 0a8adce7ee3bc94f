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
    ASSERT_EQ(count, track.GetPointCount());
    for (int index = 0; index < count; ++index) {
      ASSERT_EQ(static_cast<float>(first + index), track.GetPoint(index)->latitude) << index;
      ASSERT_EQ(41.5F, track.GetPoint(index)->speedKmh) << index;
    }
  }

  TrackStore track;
};

TEST(TrackPointTest, LayoutIsThatOfTheTrackBuffer) {
  EXPECT_EQ(POINT_SIZE, sizeof(TrackPoint));
  EXPECT_EQ(0U, offsetof(TrackPoint, altitude));
  EXPECT_EQ(4U, offsetof(TrackPoint, longitude));
  EXPECT_EQ(8U, offsetof(TrackPoint, latitude));
  EXPECT_EQ(12U, offsetof(TrackPoint, course));
  EXPECT_EQ(16U, offsetof(TrackPoint, speedKmh));
  EXPECT_EQ(20U, offsetof(TrackPoint, time));
}

TEST_F(TrackStoreTest, FreshStoreIsEmpty) {
  EXPECT_EQ(0, track.GetPointCount());
  EXPECT_EQ(nullptr, track.GetPoint(0));
  EXPECT_EQ(nullptr, track.GetPoint(-1));
}

TEST_F(TrackStoreTest, AppendedPointIsKeptWhole) {
  EXPECT_EQ(1, track.Append(Point()));
  ASSERT_EQ(1, track.GetPointCount());
  const TrackPoint& point = *track.GetPoint(0);
  EXPECT_EQ(545.5F, point.altitude);
  EXPECT_EQ(1131.0F, point.longitude);
  EXPECT_EQ(4807.0F, point.latitude);
  EXPECT_EQ(84.5F, point.course);
  EXPECT_EQ(41.5F, point.speedKmh);
  EXPECT_EQ(Fields(Moment(2024, 5, 6, 7, 8, 9, 10)), Fields(point.time));
}

TEST_F(TrackStoreTest, AppendReturnsTheNewCount) {
  EXPECT_EQ(1, track.Append(PointNumber(1)));
  EXPECT_EQ(2, track.Append(PointNumber(2)));
  EXPECT_EQ(0, track.Append(PointNumber(2)));
  EXPECT_EQ(3, track.Append(PointNumber(3)));
}

TEST_F(TrackStoreTest, IndexOutOfRangeGivesNull) {
  AppendNumbers(1, 3);
  EXPECT_EQ(nullptr, track.GetPoint(-1));
  EXPECT_EQ(nullptr, track.GetPoint(3));
  EXPECT_NE(nullptr, track.GetPoint(2));
}

TEST_F(TrackStoreTest, PointWithoutAPositionIsRefused) {
  TrackPoint point = Point();
  point.latitude = MISSING_FLOAT;
  EXPECT_EQ(0, track.Append(point));
  point = Point();
  point.longitude = MISSING_FLOAT;
  EXPECT_EQ(0, track.Append(point));
  EXPECT_EQ(0, track.GetPointCount());
}

TEST_F(TrackStoreTest, PointWithANegativeOrMissingSpeedIsRefused) {
  TrackPoint point = Point();
  for (const float speed : {MISSING_FLOAT, -0.001F}) {
    point.speedKmh = speed;
    EXPECT_EQ(0, track.Append(point)) << speed;
  }
  point.speedKmh = 0;
  EXPECT_EQ(1, track.Append(point));
}

TEST_F(TrackStoreTest, AltitudeAndCourseMayBeMissing) {
  TrackPoint point = Point();
  point.altitude = MISSING_FLOAT;
  point.course = MISSING_FLOAT;
  EXPECT_EQ(1, track.Append(point));
}

TEST_F(TrackStoreTest, RepeatedPointIsRefused) {
  track.Append(Point());
  EXPECT_EQ(0, track.Append(Point()));
  EXPECT_EQ(1, track.GetPointCount());
}

TEST_F(TrackStoreTest, DayOfTheWeekIsNotCompared) {
  track.Append(Point());
  TrackPoint point = Point();
  point.time.wDayOfWeek = 5;
  EXPECT_EQ(0, track.Append(point));
}

TEST_F(TrackStoreTest, PointThatDiffersInAnyOtherFieldIsKept) {
  for (float TrackPoint::*field :
       {&TrackPoint::altitude, &TrackPoint::longitude, &TrackPoint::latitude, &TrackPoint::course,
        &TrackPoint::speedKmh}) {
    TrackStore store;
    store.Append(Point());
    TrackPoint point = Point();
    point.*field += 0.5F;
    EXPECT_EQ(2, store.Append(point));
  }
  for (WORD SYSTEMTIME::*field :
       {&SYSTEMTIME::wYear, &SYSTEMTIME::wMonth, &SYSTEMTIME::wDay, &SYSTEMTIME::wHour,
        &SYSTEMTIME::wMinute, &SYSTEMTIME::wSecond, &SYSTEMTIME::wMilliseconds}) {
    TrackStore store;
    store.Append(Point());
    TrackPoint point = Point();
    ++(point.time.*field);
    EXPECT_EQ(2, store.Append(point));
  }
}

TEST_F(TrackStoreTest, OnlyTheLastPointIsCompared) {
  AppendNumbers(1, 2);
  EXPECT_EQ(3, track.Append(PointNumber(1)));
}

// ---- Growth ----

TEST_F(TrackStoreTest, NineHundredNinetyNinePointsFitTheFirstBlock) {
  AppendNumbers(1, 999);
  EXPECT_EQ(0, failing_memory::CountReallocs());
  ExpectNumbers(1, 999);
}

TEST_F(TrackStoreTest, ThousandthPointGrowsTheBlockToTwoThousand) {
  AppendNumbers(1, 1000);
  EXPECT_EQ(1, failing_memory::CountReallocs());
  EXPECT_EQ(2000 * POINT_SIZE, failing_memory::LastReallocSize());
  ExpectNumbers(1, 1000);
}

TEST_F(TrackStoreTest, TwoThousandthPointGrowsTheBlockByAnotherThousand) {
  AppendNumbers(1, 1999);
  EXPECT_EQ(1, failing_memory::CountReallocs());
  AppendNumbers(2000, 2000);
  EXPECT_EQ(2, failing_memory::CountReallocs());
  EXPECT_EQ(3000 * POINT_SIZE, failing_memory::LastReallocSize());
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
  EXPECT_EQ(0, failing_memory::CountReallocs());
}

// ---- Out of memory ----

TEST_F(TrackStoreTest, WithoutMemoryFromTheStartEveryPointIsRefused) {
  failing_memory::RefuseMallocOf(1000 * POINT_SIZE);
  TrackStore store;
  failing_memory::RefuseMallocOf(0);
  EXPECT_EQ(0, store.Append(Point()));
  EXPECT_EQ(0, store.GetPointCount());
  EXPECT_EQ(nullptr, store.GetPoint(0));
}

TEST_F(TrackStoreTest, FirstPointAfterAFailedGrowthStillFits) {
  AppendNumbers(1, 999);
  failing_memory::RefuseRealloc(true);
  EXPECT_EQ(1000, track.Append(PointNumber(1000)));
  EXPECT_EQ(1, failing_memory::CountReallocs());
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
  EXPECT_EQ(0, track.GetDroppedCount());
  AppendNumbers(1001, 3500);
  EXPECT_EQ(2500, track.GetDroppedCount());
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
