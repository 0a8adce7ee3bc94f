#include <gtest/gtest.h>

#include <vector>

#include "widgets/path/PathReadouts.h"
#include "widgets/path/PathTrack.h"
#include "widgets/path/PathTrip.h"

namespace ferolin {

namespace {

class PathTripTest : public testing::Test {
 protected:
  void Add(float kmh, int second, float latitude = 5540, float longitude = 3730) {
    points.push_back(PathPointAt(latitude, longitude, kmh, second));
  }
  void Update() { trip.Update(PathPoints(points, 0)); }

  std::vector<TrackPoint> points;
  PathTrip trip;
};

TEST_F(PathTripTest, AddsTheMeanOfBothSpeeds) {
  Add(36, 0);
  Add(72, 10);
  Update();
  // 54 km/h are 15 m/s: 150 m.
  EXPECT_EQ(10, trip.GetElapsedSeconds());
  EXPECT_NEAR(0.15, trip.GetDistanceKm(), 1e-6);
  EXPECT_NEAR(54, trip.GetAverageKmh(), 1e-4);
}

TEST_F(PathTripTest, StartsAtZero) {
  Update();
  EXPECT_EQ(0, trip.GetElapsedSeconds());
  EXPECT_EQ(0, trip.GetDistanceKm());
  EXPECT_EQ(0, trip.GetAverageKmh());
  EXPECT_FALSE(trip.GetBox().HasArea());
}

TEST_F(PathTripTest, GivesTheSameInOneGoAndPointByPoint) {
  PathTrip inOneGo;
  for (int second = 0; second < 100; ++second) {
    Add(static_cast<float>(second % 50), second);
    Update();
    Update();
  }
  inOneGo.Update(PathPoints(points, 0));
  EXPECT_EQ(99, trip.GetElapsedSeconds());
  EXPECT_EQ(inOneGo.GetDistanceKm(), trip.GetDistanceKm());
}

TEST_F(PathTripTest, CountsNothingForASecondPointAtTheSameTime) {
  Add(36, 0);
  Add(72, 0);
  Update();
  EXPECT_EQ(0, trip.GetElapsedSeconds());
  EXPECT_EQ(0, trip.GetDistanceKm());
  EXPECT_EQ(0, trip.GetAverageKmh());
  Add(36, 10);
  Update();
  EXPECT_NEAR(0.15, trip.GetDistanceKm(), 1e-6) << "but goes on from it: from 72 to 36 km/h";
}

TEST_F(PathTripTest, CountsNothingForAStepBackInTime) {
  Add(36, 100);
  Add(36, 50);
  Update();
  EXPECT_EQ(0, trip.GetElapsedSeconds());
  Add(36, 60);
  Update();
  EXPECT_EQ(10, trip.GetElapsedSeconds());
}

TEST_F(PathTripTest, CountsWholeSecondsOnly) {
  Add(36, 0);
  Add(36, 1);
  points[1].time.wMilliseconds = 900;
  Update();
  EXPECT_EQ(1, trip.GetElapsedSeconds());
  EXPECT_NEAR(0.01, trip.GetDistanceKm(), 1e-6);
}

TEST_F(PathTripTest, HasNoAverageBeforeAWholeSecond) {
  Add(36, 0);
  Add(36, 0);
  points[1].time.wMilliseconds = 500;
  Update();
  EXPECT_EQ(0, trip.GetAverageKmh());
}

TEST_F(PathTripTest, CountsNothingAfterATimeThatIsNone) {
  Add(36, 0);
  Add(36, 5);
  points[1].time.wMonth = 13;
  Add(36, 10);
  Add(36, 20);
  Update();
  EXPECT_EQ(10, trip.GetElapsedSeconds()) << "from 10 to 20 only";
}

TEST_F(PathTripTest, KeepsTheBoxOfAllPositions) {
  Add(36, 0, 5540, -130);
  Add(36, 1, -120, 3730);
  Add(36, 2, 5539, 17959);
  Update();
  EXPECT_EQ(-120, trip.GetBox().minLatitude);
  EXPECT_EQ(5540, trip.GetBox().maxLatitude);
  EXPECT_EQ(-130, trip.GetBox().minLongitude);
  EXPECT_EQ(17959, trip.GetBox().maxLongitude);
}

TEST_F(PathTripTest, StartsAgainWithAShorterTrack) {
  for (int second = 0; second < 10; ++second) {
    Add(90, second, 5540);
  }
  Update();
  points.clear();
  Add(36, 0, 100);
  Add(72, 10, 100);
  Update();
  EXPECT_EQ(10, trip.GetElapsedSeconds());
  EXPECT_NEAR(0.15, trip.GetDistanceKm(), 1e-6);
  EXPECT_EQ(100, trip.GetBox().maxLatitude);
}

TEST_F(PathTripTest, GoesOnWhenTheTrackLosesItsOldestPoints) {
  constexpr std::ptrdiff_t CAPACITY = 10;
  for (int second = 0; second < 100; ++second) {
    Add(36, second);
    const auto lost = std::max<std::ptrdiff_t>(0, std::ssize(points) - CAPACITY);
    trip.Update(PathPoints(std::span(points).subspan(static_cast<std::size_t>(lost)),
                           static_cast<int>(lost)));
  }
  EXPECT_EQ(99, trip.GetElapsedSeconds());
  EXPECT_NEAR(0.99, trip.GetDistanceKm(), 1e-4);
}

TEST(ElapsedTextTest, HasAFormForEachLength) {
  EXPECT_EQ("0 sec", ElapsedText(0));
  EXPECT_EQ("59 sec", ElapsedText(59));
  EXPECT_EQ("1:00", ElapsedText(60));
  EXPECT_EQ("1:01", ElapsedText(61));
  EXPECT_EQ("59:59", ElapsedText(3599));
  EXPECT_EQ("1:00:00", ElapsedText(3600));
  EXPECT_EQ("1:01:01", ElapsedText(3661));
  EXPECT_EQ("23:59:59", ElapsedText(86399));
  EXPECT_EQ("1D.0:0:0", ElapsedText(86400));
  EXPECT_EQ("1D.1:1:1", ElapsedText(90061));
}

TEST(PathDistanceTextTest, GetsCoarserAsItGrows) {
  EXPECT_EQ("0 m", PathDistanceText(0));
  EXPECT_EQ("500 m", PathDistanceText(0.5F));
  EXPECT_EQ("1000 m", PathDistanceText(0.9999F));
  EXPECT_EQ("1.00 km", PathDistanceText(1));
  EXPECT_EQ("1.23 km", PathDistanceText(1.234F));
  EXPECT_EQ("10.00 km", PathDistanceText(9.999F));
  EXPECT_EQ("10.0 km", PathDistanceText(10));
  EXPECT_EQ("12.3 km", PathDistanceText(12.34F));
}

TEST(PathSpeedTextTest, HasOneDecimal) {
  EXPECT_EQ("0.0 km/h", PathSpeedText(0));
  EXPECT_EQ("87.3 km/h", PathSpeedText(87.26));
}

}  // namespace

}  // namespace ferolin
