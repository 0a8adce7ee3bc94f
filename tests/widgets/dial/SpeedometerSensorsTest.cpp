#include "widgets/ViewTest.h"
#include "widgets/dial/SpeedometerSensors.h"

namespace ferolin {

namespace {

TEST(SpeedometerSensors, ListTakesNoMoreThanItHolds) {
  SensorList<3> list;
  EXPECT_TRUE(list.IsEmpty());
  for (const int index : {7, 8, 9, 10}) {
    list.Add(index);
  }
  EXPECT_EQ((std::vector<int>{7, 8, 9}), std::vector<int>(list.Get().begin(), list.Get().end()));
}

TEST(SpeedometerSensors, ReadsTheTargetBehindTheFirstZeroOrHyphen) {
  EXPECT_EQ(100, AccelerationTarget("Accel. 0-100 km/h"));
  EXPECT_EQ(62.5, AccelerationTarget("Accel. 0-62.5 km/h"));
  EXPECT_EQ(60, AccelerationTarget("-x60"));
  EXPECT_EQ(0, AccelerationTarget("Accel."));
  EXPECT_EQ(0, AccelerationTarget("Accel. 0"));
  EXPECT_EQ(0, AccelerationTarget(""));
}

TEST(SpeedometerSensors, ReadsTheDistanceBehindTheWord) {
  EXPECT_EQ(402, FastestDistance("Fastest 402m"));
  EXPECT_EQ(10000, FastestDistance("Fastest 10000m"));
  EXPECT_EQ(0, FastestDistance("Fastest"));
  EXPECT_EQ(0, FastestDistance("Slowest 402m"));
}

TEST(SpeedometerSensors, AreNotFoundAtFirst) {
  const SpeedometerSensors sensors;
  EXPECT_FALSE(sensors.AreAllFound());
  EXPECT_EQ(NO_SENSOR, sensors.speed);
  EXPECT_EQ(NO_SENSOR, sensors.azimuth);
}

using SpeedometerSensorsTest = ViewTest;

TEST_F(SpeedometerSensorsTest, AreFoundInTheEnginesList) {
  Load();
  SpeedometerSensors sensors;
  sensors.Find(*engine);
  EXPECT_TRUE(sensors.AreAllFound());
  EXPECT_EQ(FEROLIN_SENSOR_SPEED, sensors.speed);
  EXPECT_EQ(FEROLIN_SENSOR_AVERAGE_SPEED, sensors.averageSpeed);
  EXPECT_EQ(FEROLIN_SENSOR_DISTANCE, sensors.distance);
  EXPECT_EQ(FEROLIN_SENSOR_MAX_SPEED, sensors.maxSpeed);
  EXPECT_EQ(FEROLIN_SENSOR_CURRENT_TIME, sensors.currentTime);
  EXPECT_EQ(FEROLIN_SENSOR_AZIMUTH, sensors.azimuth);
  const auto fastest = sensors.fastest.Get();
  EXPECT_EQ((std::vector<int>{FEROLIN_SENSOR_FASTEST_100, FEROLIN_SENSOR_FASTEST_402,
                              FEROLIN_SENSOR_FASTEST_1000}),
            std::vector<int>(fastest.begin(), fastest.end()));
  const auto acceleration = sensors.acceleration.Get();
  EXPECT_EQ(
      (std::vector<int>{FEROLIN_SENSOR_ACCEL_10, FEROLIN_SENSOR_ACCEL_30, FEROLIN_SENSOR_ACCEL_60,
                        FEROLIN_SENSOR_ACCEL_100, FEROLIN_SENSOR_ACCEL_150}),
      std::vector<int>(acceleration.begin(), acceleration.end()));
}

}  // namespace

}  // namespace ferolin
