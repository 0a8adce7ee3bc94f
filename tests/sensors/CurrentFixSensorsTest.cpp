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
  EXPECT_EQ(SpeedSensor("").IsSaveable(), 0);
  EXPECT_EQ(BatterySensor("").IsSaveable(), 0);
  EXPECT_EQ(DopSensor("", &FixRecord::GetHdop).IsSaveable(), 0);
}

TEST_F(CurrentFixSensorsTest, ResetEmptiesTheTextUntilTheNextFix) {
  AltitudeSensor sensor("Altitude");
  sensor.Update(fix);
  sensor.Reset();
  EXPECT_STREQ(sensor.GetValueText(), "");
  sensor.Update(fix);
  EXPECT_STREQ(sensor.GetValueText(), "N/A");
}

// ---- GPS status ----

TEST_F(CurrentFixSensorsTest, GpsStatusIsOkWithAValidFix) {
  fix.fixValid = 1;
  EXPECT_EQ(TextOf(GpsStatusSensor(""), fix), "OK");
}

TEST_F(CurrentFixSensorsTest, GpsStatusTellsThatThereIsNoSignal) {
  EXPECT_EQ(TextOf(GpsStatusSensor(""), fix), "No signal");
}

// ---- Satellites used ----

TEST_F(CurrentFixSensorsTest, SatellitesUsedAreCountedWithoutAFixToo) {
  EXPECT_EQ(TextOf(SatellitesUsedSensor(""), fix), "0");
  fix.satellitesUsed = 11;
  EXPECT_EQ(TextOf(SatellitesUsedSensor(""), fix), "11");
}

TEST_F(CurrentFixSensorsTest, MissingSatellitesUsedAreZero) {
  fix.satellitesUsed = MISSING_VALUE;
  EXPECT_EQ(TextOf(SatellitesUsedSensor(""), fix), "0");
}

// ---- Current time ----

TEST_F(CurrentFixSensorsTest, CurrentTimePadsMinutesAndSeconds) {
  fix.localTime = testing_support::Moment(2024, 5, 6, 9, 5, 7);
  EXPECT_EQ(TextOf(CurrentTimeSensor(""), fix), "9:05:07");
  fix.localTime = testing_support::Moment(2024, 5, 6, 23, 59, 0);
  EXPECT_EQ(TextOf(CurrentTimeSensor(""), fix), "23:59:00");
  fix.localTime = testing_support::Moment(2024, 5, 6, 0, 0, 0);
  EXPECT_EQ(TextOf(CurrentTimeSensor(""), fix), "0:00:00");
}

// ---- Speed ----

TEST_F(CurrentFixSensorsTest, SpeedHasOneDecimal) {
  fix.fixValid = 1;
  fix.speedKmh = 54.26F;
  EXPECT_EQ(TextOf(SpeedSensor(""), fix), "54.3 km/h");
  fix.speedKmh = 0;
  EXPECT_EQ(TextOf(SpeedSensor(""), fix), "0.0 km/h");
}

TEST_F(CurrentFixSensorsTest, SpeedIsEmptyWithoutAFix) {
  SpeedSensor sensor("Speed");
  fix.fixValid = 1;
  fix.speedKmh = 54.26F;
  sensor.Update(fix);
  fix.fixValid = 0;
  sensor.Update(fix);
  EXPECT_STREQ(sensor.GetValueText(), "");
}

TEST_F(CurrentFixSensorsTest, SpeedIsEmptyWhenItIsMissing) {
  EXPECT_EQ(TextOf(SpeedSensor(""), fix), "");
  fix.fixValid = 1;
  EXPECT_EQ(TextOf(SpeedSensor(""), fix), "");
}

// ---- Coordinates ----

TEST_F(CurrentFixSensorsTest, MissingCoordinatesAreNotAvailable) {
  EXPECT_EQ(TextOf(LatitudeSensor(""), fix), "N/A");
  EXPECT_EQ(TextOf(LongitudeSensor(""), fix), "N/A");
}

TEST_F(CurrentFixSensorsTest, LatitudeShowsDegreesMinutesAndSeconds) {
  fix.latitude = -5530.5F;
  EXPECT_EQ(TextOf(LatitudeSensor(""), fix), Ansi("55°30'30'' SL"));
  fix.latitude = 5530.5F;
  EXPECT_EQ(TextOf(LatitudeSensor(""), fix), Ansi("55°30'30'' NL"));
}

TEST_F(CurrentFixSensorsTest, LongitudeShowsDegreesMinutesAndSeconds) {
  fix.longitude = -1131.0F;
  EXPECT_EQ(TextOf(LongitudeSensor(""), fix), Ansi("11°31'0'' WL"));
  fix.longitude = 15112.5F;
  EXPECT_EQ(TextOf(LongitudeSensor(""), fix), Ansi("151°12'30'' EL"));
}

/// 0.99 minutes are 59.4 seconds.
TEST_F(CurrentFixSensorsTest, SecondsAreCutNotRounded) {
  fix.latitude = 3745.99F;
  EXPECT_EQ(TextOf(LatitudeSensor(""), fix), Ansi("37°45'59'' NL"));
}

/// 4807.038F is 4807.0380859375: 0.0380859375 minutes are 2.28 seconds.
TEST_F(CurrentFixSensorsTest, SecondsAreThoseOfTheStoredNumber) {
  fix.latitude = 4807.038F;
  EXPECT_EQ(TextOf(LatitudeSensor(""), fix), Ansi("48°7'2'' NL"));
  fix.longitude = 17959.999F;
  EXPECT_EQ(TextOf(LongitudeSensor(""), fix), Ansi("179°59'59'' EL"));
}

TEST_F(CurrentFixSensorsTest, ZeroLiesInTheNorthAndEast) {
  fix.latitude = 0;
  fix.longitude = 0;
  EXPECT_EQ(TextOf(LatitudeSensor(""), fix), Ansi("0°0'0'' NL"));
  EXPECT_EQ(TextOf(LongitudeSensor(""), fix), Ansi("0°0'0'' EL"));
}

/// v x 0.01 is a product of single precision: it must not fall short of the whole degree.
TEST_F(CurrentFixSensorsTest, WholeDegreesStayWhole) {
  for (int degrees = 0; degrees <= 180; ++degrees) {
    fix.longitude = static_cast<float>(degrees * 100);
    EXPECT_EQ(TextOf(LongitudeSensor(""), fix), Ansi(std::to_string(degrees) + "°0'0'' EL"));
  }
}

TEST_F(CurrentFixSensorsTest, DegreesThatNoNumberHoldsStayAtTheLargest) {
  fix.latitude = -1e20F;
  EXPECT_EQ(TextOf(LatitudeSensor(""), fix), Ansi("2147483647°2147483647'2147483647'' SL"));
}

// ---- Altitude, azimuth, precision ----

TEST_F(CurrentFixSensorsTest, AltitudeHasOneDecimalAndItsUnit) {
  EXPECT_EQ(TextOf(AltitudeSensor(""), fix), "N/A");
  fix.altitude = 545.4F;
  EXPECT_EQ(TextOf(AltitudeSensor(""), fix), "545.4 m");
  fix.altitude = -12.34F;
  EXPECT_EQ(TextOf(AltitudeSensor(""), fix), "-12.3 m");
}

TEST_F(CurrentFixSensorsTest, AzimuthIsInWholeDegreesWithoutAUnit) {
  EXPECT_EQ(TextOf(AzimuthSensor(""), fix), "N/A");
  fix.course = 84.4F;
  EXPECT_EQ(TextOf(AzimuthSensor(""), fix), "84");
  fix.course = 359.7F;
  EXPECT_EQ(TextOf(AzimuthSensor(""), fix), "360");
  fix.course = 0;
  EXPECT_EQ(TextOf(AzimuthSensor(""), fix), "0");
}

TEST_F(CurrentFixSensorsTest, EachPrecisionSensorShowsItsOwnField) {
  EXPECT_EQ(TextOf(DopSensor("", &FixRecord::GetHdop), fix), "N/A");
  fix.hdop = 0.9F;
  fix.vdop = 1.26F;
  EXPECT_EQ(TextOf(DopSensor("", &FixRecord::GetHdop), fix), "0.9");
  EXPECT_EQ(TextOf(DopSensor("", &FixRecord::GetVdop), fix), "1.3");
  EXPECT_EQ(TextOf(DopSensor("", &FixRecord::GetPdop), fix), "N/A");
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
  EXPECT_EQ(TextOfBattery(1, 80), "80%");
  EXPECT_EQ(TextOfBattery(0, 0), "0%");
  EXPECT_EQ(TextOfBattery(0, 100), "100%");
}

TEST_F(BatterySensorTest, TellsThatItIsCharging) {
  EXPECT_EQ(TextOfBattery(CHARGING, 80), "80%(charging)");
  EXPECT_EQ(TextOfBattery(CHARGING | 1, 100), "100%(charging)");
}

TEST_F(BatterySensorTest, ChargingWithUnknownLevelIsJustCharging) {
  EXPECT_EQ(TextOfBattery(CHARGING, 255), "charging");
  EXPECT_EQ(TextOfBattery(CHARGING, 101), "charging");
}

TEST_F(BatterySensorTest, UnknownLevelIsNotAvailable) {
  EXPECT_EQ(TextOfBattery(1, 255), "N/A");
  EXPECT_EQ(TextOfBattery(0x80, 255), "N/A");
  EXPECT_EQ(TextOfBattery(1, 101), "N/A");
}

TEST_F(BatterySensorTest, DeviceThatDoesNotTellIsNotAvailable) {
  handheld::SetBatteryFailing(true);
  EXPECT_EQ(TextOfBattery(CHARGING, 80), "N/A");
}

}  // namespace
}  // namespace ferolin
