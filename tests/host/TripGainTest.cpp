#include <ferolin.h>
#include <gtest/gtest.h>

#include "run/TripGain.h"

namespace host {
namespace {

/// The trip after the step.
KeptTrip After(const KeptTrip& trip, const KeptTrip& before, const KeptTrip& after,
               double highestKmh = 0) {
  KeptTrip changed = trip;
  AddGain(changed, {before, after, highestKmh});
  return changed;
}

std::string StateAfter(int sensor, const std::string& own, const std::string& before,
                       const std::string& after, double highestKmh = 0) {
  return After({"B", 1, {{sensor, own}}}, {"A", 1, {{sensor, before}}}, {"A", 1, {{sensor, after}}},
               highestKmh)
      .states[sensor];
}

TEST(TripGain, AddsDistanceAndTime) {
  EXPECT_EQ("2.500000", StateAfter(FEROLIN_SENSOR_DISTANCE, "2", "10", "10.5"));
  EXPECT_EQ("0.500000", StateAfter(FEROLIN_SENSOR_DISTANCE, "", "0", "0.5"));
  EXPECT_EQ("", StateAfter(FEROLIN_SENSOR_DISTANCE, "", "10", "10"));
  EXPECT_EQ("70", StateAfter(FEROLIN_SENSOR_ELAPSED, "60", "3600", "3610"));
}

TEST(TripGain, CountsASumThatWasResetFromZero) {
  EXPECT_EQ("2.250000", StateAfter(FEROLIN_SENSOR_DISTANCE, "2", "10", "0.25"));
  EXPECT_EQ("65", StateAfter(FEROLIN_SENSOR_ELAPSED, "60", "3600", "5"));
}

TEST(TripGain, AddsKilometresAndSecondsOfTheAverage) {
  EXPECT_EQ("2.500000;160",
            StateAfter(FEROLIN_SENSOR_AVERAGE_SPEED, "2;60", "10;900", "10.5;1000"));
  EXPECT_EQ("0.500000;100", StateAfter(FEROLIN_SENSOR_AVERAGE_SPEED, "", "10;900", "10.5;1000"));
  // 20 s since the reset are more kilometres than the 900 s before it.
  EXPECT_EQ("2.600000;80", StateAfter(FEROLIN_SENSOR_AVERAGE_SPEED, "2;60", "0.1;900", "0.6;20"));
  EXPECT_EQ("", StateAfter(FEROLIN_SENSOR_AVERAGE_SPEED, "", "10;900", "10;900"));
}

TEST(TripGain, LiftsTheHighestSpeed) {
  EXPECT_EQ("90.00", StateAfter(FEROLIN_SENSOR_MAX_SPEED, "80", "120", "120", 90));
  EXPECT_EQ("80", StateAfter(FEROLIN_SENSOR_MAX_SPEED, "80", "120", "120", 70));
  // Without the receiver's speeds a new maximum of the shown trip is known.
  EXPECT_EQ("125.00", StateAfter(FEROLIN_SENSOR_MAX_SPEED, "80", "120", "125"));
  EXPECT_EQ("36.00", StateAfter(FEROLIN_SENSOR_MAX_SPEED, "", "-9999", "36"));
  EXPECT_EQ("", StateAfter(FEROLIN_SENSOR_MAX_SPEED, "", "120", "120"));
}

TEST(TripGain, TakesNewRecordsThatBeatItsOwn) {
  EXPECT_EQ("100;9.5", StateAfter(FEROLIN_SENSOR_ACCEL_100, "100;12", "100;10", "100;9.5"));
  EXPECT_EQ("100;9.5", StateAfter(FEROLIN_SENSOR_ACCEL_100, "", "100;-9999", "100;9.5"));
  EXPECT_EQ("100;9", StateAfter(FEROLIN_SENSOR_ACCEL_100, "100;9", "100;10", "100;9.5"));
  EXPECT_EQ("402;17250", StateAfter(FEROLIN_SENSOR_FASTEST_402, "402;0", "402;0", "402;17250"));
}

TEST(TripGain, LeavesTheShownTripsOldRecordsAlone) {
  EXPECT_EQ("", StateAfter(FEROLIN_SENSOR_ACCEL_100, "", "100;10", "100;10"));
  EXPECT_EQ("100;12", StateAfter(FEROLIN_SENSOR_ACCEL_100, "100;12", "100;10", "100;-9999"));
}

TEST(TripGain, AddsMovingAndStandingTime) {
  const KeptTrip before = {"A", 1, {}, {10, 60000, 5000}};
  const KeptTrip after = {"A", 1, {}, {10.5, 90000, 6000}};
  const KeptTrip reset = {"A", 1, {}, {0.5, 20000, 1000}};
  const KeptTrip own = {"B", 1, {}, {1, 1000, 0}};
  EXPECT_EQ((MovingTime::Sums{1.5, 31000, 1000}), After(own, before, after).moving);
  EXPECT_EQ((MovingTime::Sums{1.5, 21000, 1000}), After(own, before, reset).moving);
}

}  // namespace
}  // namespace host
