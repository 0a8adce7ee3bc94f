#include <gtest/gtest.h>

#include "outputs/ShownReadouts.h"

namespace host {
namespace {

Readouts EngineReadouts() {
  Readouts readouts(FEROLIN_SENSOR_COUNT, {"name", "engine's"});
  readouts[FEROLIN_SENSOR_ALTITUDE].value.clear();
  return readouts;
}

Fix SomeFix() {
  Fix fix;
  fix.latitude = 55.75;
  fix.longitude = -37.6;
  fix.speedKmh = 96.56064;
  fix.altitude = 304.8;
  return fix;
}

Figures SomeFigures() {
  Figures figures;
  figures.distanceKm = 42.195;
  figures.averageKmh = 16.09344;
  figures.highestKmh = 160.9344;
  return figures;
}

TEST(ShownReadouts, ConvertUnits) {
  Readouts readouts = EngineReadouts();
  ConvertUnits(readouts, SomeFix(), SomeFigures(), Units::MI);
  EXPECT_EQ("60.0 mph", readouts[FEROLIN_SENSOR_SPEED].value);
  EXPECT_EQ("100.0 mph", readouts[FEROLIN_SENSOR_MAX_SPEED].value);
  EXPECT_EQ("10.00 mph", readouts[FEROLIN_SENSOR_AVERAGE_SPEED].value);
  EXPECT_EQ("26.2 mi", readouts[FEROLIN_SENSOR_DISTANCE].value);
  EXPECT_EQ("engine's", readouts[FEROLIN_SENSOR_LATITUDE].value);
}

TEST(ShownReadouts, LeaveOutWhatTheEngineLeavesOut) {
  Readouts readouts = EngineReadouts();
  ConvertUnits(readouts, SomeFix(), SomeFigures(), Units::MI);
  EXPECT_EQ("", readouts[FEROLIN_SENSOR_ALTITUDE].value);
}

TEST(ShownReadouts, StayAsTheyAreWithoutANumber) {
  Readouts readouts = EngineReadouts();
  ConvertUnits(readouts, std::nullopt, Figures(), Units::MI);
  ConvertAngles(readouts, std::nullopt);
  EXPECT_EQ("engine's", readouts[FEROLIN_SENSOR_SPEED].value);
  EXPECT_EQ("engine's", readouts[FEROLIN_SENSOR_MAX_SPEED].value);
  EXPECT_EQ("engine's", readouts[FEROLIN_SENSOR_LATITUDE].value);
}

TEST(ShownReadouts, ShowDecimalDegrees) {
  Readouts readouts = EngineReadouts();
  ConvertAngles(readouts, SomeFix());
  EXPECT_EQ("55.750000", readouts[FEROLIN_SENSOR_LATITUDE].value);
  EXPECT_EQ("-37.600000", readouts[FEROLIN_SENSOR_LONGITUDE].value);
}

TEST(ShownReadouts, TellTheTimeStopped) {
  EXPECT_EQ("7 s", DescribeStopped(7999, false));
  EXPECT_EQ("7 с", DescribeStopped(7000, true));
  EXPECT_EQ("1:02", DescribeStopped(62000, false));
  EXPECT_EQ("27:00:05", DescribeStopped(97205000, false));
}

}  // namespace
}  // namespace host
