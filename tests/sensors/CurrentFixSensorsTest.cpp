#include <gtest/gtest.h>

#include <string>

#include "gps/FixRecord.h"
#include "handheld.h"
#include "sensors/BatterySensor.h"
#include "sensors/CurrentFixSensors.h"
#include "support/EditableFix.h"
#include "support/Moments.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

std::string TextOf(Sensor&& sensor, const FixRecord& fix) {
  sensor.Update(fix);
  return sensor.GetValueText();
}

/// The device's 8-bit text.
std::string Ansi(const std::string& utf8) {
  return handheld::AnsiFromUtf8(utf8);
}

class CurrentFixSensorsTest : public testing::Test {
 protected:
  EditableFix fix;
};

TEST_F(CurrentFixSensorsTest, NoneOfThemIsSaveable) {
  EXPECT_EQ(0, SpeedSensor("").IsSaveable());
  EXPECT_EQ(0, BatterySensor("").IsSaveable());
  EXPECT_EQ(0, DopSensor("", &FixRecord::GetHdop).IsSaveable());
}

TEST_F(CurrentFixSensorsTest, ResetEmptiesTheTextUntilTheNextFix) {
  AltitudeSensor sensor("Altitude");
  sensor.Update(fix);
  sensor.Reset();
  EXPECT_STREQ("", sensor.GetValueText());
  sensor.Update(fix);
  EXPECT_STREQ("N/A", sensor.GetValueText());
}

// ---- GPS status ----

TEST_F(CurrentFixSensorsTest, GpsStatusIsOkWithAValidFix) {
  fix.fixValid = 1;
  EXPECT_EQ("OK", TextOf(GpsStatusSensor(""), fix));
}

TEST_F(CurrentFixSensorsTest, GpsStatusTellsThatThereIsNoSignal) {
  EXPECT_EQ("No signal", TextOf(GpsStatusSensor(""), fix));
}

// ---- Satellites used ----

TEST_F(CurrentFixSensorsTest, SatellitesUsedAreCountedWithoutAFixToo) {
  EXPECT_EQ("0", TextOf(SatellitesUsedSensor(""), fix));
  fix.satellitesUsed = 11;
  EXPECT_EQ("11", TextOf(SatellitesUsedSensor(""), fix));
}

TEST_F(CurrentFixSensorsTest, MissingSatellitesUsedAreZero) {
  fix.satellitesUsed = MISSING_VALUE;
  EXPECT_EQ("0", TextOf(SatellitesUsedSensor(""), fix));
}

// ---- Current time ----

TEST_F(CurrentFixSensorsTest, CurrentTimePadsMinutesAndSeconds) {
  fix.SetLocalTime(testing_support::Moment(2024, 5, 6, 9, 5, 7));
  EXPECT_EQ("9:05:07", TextOf(CurrentTimeSensor(""), fix));
  fix.SetLocalTime(testing_support::Moment(2024, 5, 6, 23, 59, 0));
  EXPECT_EQ("23:59:00", TextOf(CurrentTimeSensor(""), fix));
  fix.SetLocalTime(testing_support::Moment(2024, 5, 6, 0, 0, 0));
  EXPECT_EQ("0:00:00", TextOf(CurrentTimeSensor(""), fix));
}

// ---- Speed ----

TEST_F(CurrentFixSensorsTest, SpeedHasOneDecimal) {
  fix.fixValid = 1;
  fix.speedKmh = 54.26F;
  EXPECT_EQ("54.3 km/h", TextOf(SpeedSensor(""), fix));
  fix.speedKmh = 0;
  EXPECT_EQ("0.0 km/h", TextOf(SpeedSensor(""), fix));
}

TEST_F(CurrentFixSensorsTest, SpeedIsEmptyWithoutAFix) {
  SpeedSensor sensor("Speed");
  fix.fixValid = 1;
  fix.speedKmh = 54.26F;
  sensor.Update(fix);
  fix.fixValid = 0;
  sensor.Update(fix);
  EXPECT_STREQ("", sensor.GetValueText());
}

TEST_F(CurrentFixSensorsTest, SpeedIsEmptyWhenItIsMissing) {
  EXPECT_EQ("", TextOf(SpeedSensor(""), fix));
  fix.fixValid = 1;
  EXPECT_EQ("", TextOf(SpeedSensor(""), fix));
}

// ---- Coordinates ----

TEST_F(CurrentFixSensorsTest, MissingCoordinatesAreNotAvailable) {
  EXPECT_EQ("N/A", TextOf(LatitudeSensor(""), fix));
  EXPECT_EQ("N/A", TextOf(LongitudeSensor(""), fix));
}

TEST_F(CurrentFixSensorsTest, LatitudeShowsDegreesMinutesAndSeconds) {
  fix.latitude = -5530.5F;
  EXPECT_EQ(Ansi("55°30'30'' SL"), TextOf(LatitudeSensor(""), fix));
  fix.latitude = 5530.5F;
  EXPECT_EQ(Ansi("55°30'30'' NL"), TextOf(LatitudeSensor(""), fix));
}

TEST_F(CurrentFixSensorsTest, LongitudeShowsDegreesMinutesAndSeconds) {
  fix.longitude = -1131.0F;
  EXPECT_EQ(Ansi("11°31'0'' WL"), TextOf(LongitudeSensor(""), fix));
  fix.longitude = 15112.5F;
  EXPECT_EQ(Ansi("151°12'30'' EL"), TextOf(LongitudeSensor(""), fix));
}

/// 0.99 minutes are 59.4 seconds.
TEST_F(CurrentFixSensorsTest, SecondsAreCutNotRounded) {
  fix.latitude = 3745.99F;
  EXPECT_EQ(Ansi("37°45'59'' NL"), TextOf(LatitudeSensor(""), fix));
}

/// 4807.038F is 4807.0380859375: 0.0380859375 minutes are 2.28 seconds.
TEST_F(CurrentFixSensorsTest, SecondsAreThoseOfTheStoredNumber) {
  fix.latitude = 4807.038F;
  EXPECT_EQ(Ansi("48°7'2'' NL"), TextOf(LatitudeSensor(""), fix));
  fix.longitude = 17959.999F;
  EXPECT_EQ(Ansi("179°59'59'' EL"), TextOf(LongitudeSensor(""), fix));
}

TEST_F(CurrentFixSensorsTest, ZeroLiesInTheNorthAndEast) {
  fix.latitude = 0;
  fix.longitude = 0;
  EXPECT_EQ(Ansi("0°0'0'' NL"), TextOf(LatitudeSensor(""), fix));
  EXPECT_EQ(Ansi("0°0'0'' EL"), TextOf(LongitudeSensor(""), fix));
}

/// v x 0.01 is a product of single precision: it must not fall short of the whole degree.
TEST_F(CurrentFixSensorsTest, WholeDegreesStayWhole) {
  for (int degrees = 0; degrees <= 180; ++degrees) {
    fix.longitude = static_cast<float>(degrees * 100);
    EXPECT_EQ(Ansi(std::to_string(degrees) + "°0'0'' EL"), TextOf(LongitudeSensor(""), fix));
  }
}

TEST_F(CurrentFixSensorsTest, DegreesThatNoNumberHoldsStayAtTheLargest) {
  fix.latitude = -1e20F;
  EXPECT_EQ(Ansi("2147483647°2147483647'2147483647'' SL"), TextOf(LatitudeSensor(""), fix));
}

// ---- Altitude, azimuth, precision ----

TEST_F(CurrentFixSensorsTest, AltitudeHasOneDecimalAndItsUnit) {
  EXPECT_EQ("N/A", TextOf(AltitudeSensor(""), fix));
  fix.altitude = 545.4F;
  EXPECT_EQ("545.4 m", TextOf(AltitudeSensor(""), fix));
  fix.altitude = -12.34F;
  EXPECT_EQ("-12.3 m", TextOf(AltitudeSensor(""), fix));
}

TEST_F(CurrentFixSensorsTest, AzimuthIsInWholeDegreesWithoutAUnit) {
  EXPECT_EQ("N/A", TextOf(AzimuthSensor(""), fix));
  fix.course = 84.4F;
  EXPECT_EQ("84", TextOf(AzimuthSensor(""), fix));
  fix.course = 359.7F;
  EXPECT_EQ("360", TextOf(AzimuthSensor(""), fix));
  fix.course = 0;
  EXPECT_EQ("0", TextOf(AzimuthSensor(""), fix));
}

TEST_F(CurrentFixSensorsTest, EachPrecisionSensorShowsItsOwnField) {
  EXPECT_EQ("N/A", TextOf(DopSensor("", &FixRecord::GetHdop), fix));
  fix.hdop = 0.9F;
  fix.vdop = 1.26F;
  EXPECT_EQ("0.9", TextOf(DopSensor("", &FixRecord::GetHdop), fix));
  EXPECT_EQ("1.3", TextOf(DopSensor("", &FixRecord::GetVdop), fix));
  EXPECT_EQ("N/A", TextOf(DopSensor("", &FixRecord::GetPdop), fix));
}

// ---- Battery ----

class BatterySensorTest : public CurrentFixSensorsTest {
 protected:
  static constexpr BYTE CHARGING = 8;
  void TearDown() override { handheld::SetBatteryFailing(false); }
  std::string TextOfBattery(BYTE flag, BYTE percent) {
    handheld::SetBattery(flag, percent);
    return TextOf(BatterySensor(""), fix);
  }
};

TEST_F(BatterySensorTest, ShowsItsPercentage) {
  EXPECT_EQ("80%", TextOfBattery(1, 80));
  EXPECT_EQ("0%", TextOfBattery(0, 0));
  EXPECT_EQ("100%", TextOfBattery(0, 100));
}

TEST_F(BatterySensorTest, TellsThatItIsCharging) {
  EXPECT_EQ("80%(charging)", TextOfBattery(CHARGING, 80));
  EXPECT_EQ("100%(charging)", TextOfBattery(CHARGING | 1, 100));
}

TEST_F(BatterySensorTest, ChargingWithUnknownLevelIsJustCharging) {
  EXPECT_EQ("charging", TextOfBattery(CHARGING, 255));
  EXPECT_EQ("charging", TextOfBattery(CHARGING, 101));
}

TEST_F(BatterySensorTest, UnknownLevelIsNotAvailable) {
  EXPECT_EQ("N/A", TextOfBattery(1, 255));
  EXPECT_EQ("N/A", TextOfBattery(0x80, 255));
  EXPECT_EQ("N/A", TextOfBattery(1, 101));
}

TEST_F(BatterySensorTest, DeviceThatDoesNotTellIsNotAvailable) {
  handheld::SetBatteryFailing(true);
  EXPECT_EQ("N/A", TextOfBattery(CHARGING, 80));
}

}  // namespace
}  // namespace ferolin
