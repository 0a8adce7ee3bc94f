// Names, words and units on a Russian device.
#include <gtest/gtest.h>

#include <string>

#include "Drive.h"
#include "handheld.h"
#include "sensors/AccelSensor.h"
#include "sensors/AverageSpeedSensor.h"
#include "sensors/BatterySensor.h"
#include "sensors/CurrentFixSensors.h"
#include "sensors/DistanceSensor.h"
#include "sensors/ElapsedSensor.h"
#include "sensors/FastestSensor.h"
#include "sensors/MaxSpeedSensor.h"
#include "support/EditableFix.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

class RussianDevice : public testing::Environment {
 public:
  void SetUp() override { handheld::SetLanguage("RUS"); }
};

[[maybe_unused]] const auto* const russianDevice =
    testing::AddGlobalTestEnvironment(new RussianDevice);

std::string TextOf(const Sensor& sensor) {
  return handheld::Utf8FromAnsi(sensor.GetValueText());
}

std::string TextOf(Sensor&& sensor, const FixRecord& fix) {
  sensor.Update(fix);
  return TextOf(sensor);
}

std::string TextOfRestored(Sensor&& sensor, const char* state) {
  EXPECT_EQ(1, sensor.SetRegistryString(state)) << state;
  return TextOf(sensor);
}

TEST(RussianTest, TargetsAreNamedInRussian) {
  EXPECT_EQ("Разгон 0-100 км/ч", handheld::Utf8FromAnsi(AccelSensor(100).GetName()));
  EXPECT_EQ("Самые быстрые 402м", handheld::Utf8FromAnsi(FastestSensor(402).GetName()));
}

TEST(RussianTest, NamesAreInCodePage1251) {
  EXPECT_STREQ("\xD1\xE0\xEC\xFB\xE5 \xE1\xFB\xF1\xF2\xF0\xFB\xE5 402\xEC",
               FastestSensor(402).GetName());
}

TEST(RussianTest, CurrentFixIsShownInRussian) {
  EditableFix fix;
  EXPECT_EQ("Нет сигнала", TextOf(GpsStatusSensor(""), fix));
  fix.fixValid = 1;
  fix.speedKmh = 54.26F;
  fix.altitude = 150.5F;
  EXPECT_EQ("OK", TextOf(GpsStatusSensor(""), fix));
  EXPECT_EQ("54.3 км/ч", TextOf(SpeedSensor(""), fix));
  EXPECT_EQ("54.3 км/ч", TextOf(MaxSpeedSensor(""), fix));
  EXPECT_EQ("150.5 м", TextOf(AltitudeSensor(""), fix));
}

TEST(RussianTest, MissingValuesAndHemispheresKeepTheirLetters) {
  EditableFix fix;
  EXPECT_EQ("N/A", TextOf(AltitudeSensor(""), fix));
  fix.latitude = -5530.5F;
  EXPECT_EQ("55°30'30'' SL", TextOf(LatitudeSensor(""), fix));
}

TEST(RussianTest, ChargingBatteryIsShownInRussian) {
  const EditableFix fix;
  handheld::SetBattery(8, 80);
  EXPECT_EQ("80%(заряжается)", TextOf(BatterySensor(""), fix));
  handheld::SetBattery(8, 255);
  EXPECT_EQ("заряжается", TextOf(BatterySensor(""), fix));
}

TEST(RussianTest, TripIsShownInRussian) {
  EXPECT_EQ("500 м", TextOfRestored(DistanceSensor(""), "0.5"));
  EXPECT_EQ("1.25 км", TextOfRestored(DistanceSensor(""), "1.25"));
  EXPECT_EQ("12.5 км", TextOfRestored(DistanceSensor(""), "12.5"));
  EXPECT_EQ("20.00 км/ч", TextOfRestored(AverageSpeedSensor(""), "10;1800"));
  EXPECT_EQ("59 с", TextOfRestored(ElapsedSensor(""), "59"));
  EXPECT_EQ("1:02:05", TextOfRestored(ElapsedSensor(""), "3725"));
  EXPECT_EQ("1дней1:1:1", TextOfRestored(ElapsedSensor(""), "90061"));
  EXPECT_EQ("9.500 с", TextOfRestored(AccelSensor(100), "100;9.5"));
  EXPECT_EQ("15.25 с", TextOfRestored(FastestSensor(402), "402;15250"));
}

TEST(RussianTest, RestoredTargetsAreNamedInRussian) {
  AccelSensor accel(100);
  accel.SetRegistryString("80;9.5");
  EXPECT_EQ("Разгон 0-80 км/ч", handheld::Utf8FromAnsi(accel.GetName()));
  FastestSensor fastest(402);
  fastest.SetRegistryString("500;15250");
  EXPECT_EQ("Самые быстрые 500м", handheld::Utf8FromAnsi(fastest.GetName()));
}

TEST(RussianTest, StatesAreTheSameInEveryLanguage) {
  MaxSpeedSensor maximum("");
  Drive drive(maximum);
  EXPECT_EQ("41.5", drive.At(0, 41.5F).State());
}

}  // namespace
}  // namespace ferolin
