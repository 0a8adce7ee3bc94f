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
  EXPECT_EQ(sensor.SetRegistryString(state), 1) << state;
  return TextOf(sensor);
}

TEST(RussianTest, TargetsAreNamedInRussian) {
  EXPECT_EQ(handheld::Utf8FromAnsi(AccelSensor(100).GetName()), "Разгон 0-100 км/ч");
  EXPECT_EQ(handheld::Utf8FromAnsi(FastestSensor(402).GetName()), "Самые быстрые 402м");
}

TEST(RussianTest, NamesAreInCodePage1251) {
  EXPECT_STREQ(FastestSensor(402).GetName(),
               "\xD1\xE0\xEC\xFB\xE5 \xE1\xFB\xF1\xF2\xF0\xFB\xE5 402\xEC");
}

TEST(RussianTest, CurrentFixIsShownInRussian) {
  EditableFix fix;
  EXPECT_EQ(TextOf(GpsStatusSensor(""), fix), "Нет сигнала");
  fix.fixValid = 1;
  fix.speedKmh = 54.26F;
  fix.altitude = 150.5F;
  EXPECT_EQ(TextOf(GpsStatusSensor(""), fix), "OK");
  EXPECT_EQ(TextOf(SpeedSensor(""), fix), "54.3 км/ч");
  EXPECT_EQ(TextOf(MaxSpeedSensor(""), fix), "54.3 км/ч");
  EXPECT_EQ(TextOf(AltitudeSensor(""), fix), "150.5 м");
}

TEST(RussianTest, MissingValuesAndHemispheresKeepTheirLetters) {
  EditableFix fix;
  EXPECT_EQ(TextOf(AltitudeSensor(""), fix), "N/A");
  fix.latitude = -5530.5F;
  EXPECT_EQ(TextOf(LatitudeSensor(""), fix), "55°30'30'' SL");
}

TEST(RussianTest, ChargingBatteryIsShownInRussian) {
  const EditableFix fix;
  handheld::SetBattery(8, 80);
  EXPECT_EQ(TextOf(BatterySensor(""), fix), "80%(заряжается)");
  handheld::SetBattery(8, 255);
  EXPECT_EQ(TextOf(BatterySensor(""), fix), "заряжается");
}

TEST(RussianTest, TripIsShownInRussian) {
  EXPECT_EQ(TextOfRestored(DistanceSensor(""), "0.5"), "500 м");
  EXPECT_EQ(TextOfRestored(DistanceSensor(""), "1.25"), "1.25 км");
  EXPECT_EQ(TextOfRestored(DistanceSensor(""), "12.5"), "12.5 км");
  EXPECT_EQ(TextOfRestored(AverageSpeedSensor(""), "10;1800"), "20.00 км/ч");
  EXPECT_EQ(TextOfRestored(ElapsedSensor(""), "59"), "59 с");
  EXPECT_EQ(TextOfRestored(ElapsedSensor(""), "3725"), "1:02:05");
  EXPECT_EQ(TextOfRestored(ElapsedSensor(""), "90061"), "1дней1:1:1");
  EXPECT_EQ(TextOfRestored(AccelSensor(100), "100;9.5"), "9.500 с");
  EXPECT_EQ(TextOfRestored(FastestSensor(402), "402;15250"), "15.25 с");
}

TEST(RussianTest, RestoredTargetsAreNamedInRussian) {
  AccelSensor accel(100);
  accel.SetRegistryString("80;9.5");
  EXPECT_EQ(handheld::Utf8FromAnsi(accel.GetName()), "Разгон 0-80 км/ч");
  FastestSensor fastest(402);
  fastest.SetRegistryString("500;15250");
  EXPECT_EQ(handheld::Utf8FromAnsi(fastest.GetName()), "Самые быстрые 500м");
}

TEST(RussianTest, StatesAreTheSameInEveryLanguage) {
  MaxSpeedSensor maximum("");
  Drive drive(maximum);
  EXPECT_EQ(drive.At(0, 41.5F).State(), "41.5");
}

}  // namespace
}  // namespace ferolin
