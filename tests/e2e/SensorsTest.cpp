// The list of read-outs and what they show.

#include "EngineTest.h"

namespace e2e {

namespace {

class Sensors : public EngineTest {};

struct Entry {
  const char* english;
  const char* russian;  ///< code page 1251
  int saveable;
  const char* atStart;  ///< value before the first update
};

// Russian words in code page 1251.
#define FASTEST_RU "\xD1\xE0\xEC\xFB\xE5 \xE1\xFB\xF1\xF2\xF0\xFB\xE5 "
#define ACCEL_RU "\xD0\xE0\xE7\xE3\xEE\xED 0-"
#define KMH_RU " \xEA\xEC/\xF7"
#define METRE_RU "\xEC"

constexpr Entry CATALOGUE[] = {
    {"GPS status", "\xD1\xF2\xE0\xF2\xF3\xF1 GPS", 0, "No signal"},
    {"Sattelites used",
     "\xCA\xEE\xEB\xE8\xF7\xE5\xF1\xF2\xE2\xEE \xF1\xEF\xF3\xF2\xED\xE8\xEA\xEE\xE2", 0, "0"},
    {"Current time", "\xD2\xE5\xEA\xF3\xF9\xE5\xE5 \xE2\xF0\xE5\xEC\xFF", 0, "0:00:00"},
    {"Fastest 100m", FASTEST_RU "100" METRE_RU, 1, ""},
    {"Fastest 402m", FASTEST_RU "402" METRE_RU, 1, ""},
    {"Fastest 1000m", FASTEST_RU "1000" METRE_RU, 1, ""},
    {"Distance", "\xCF\xF0\xEE\xE9\xE4\xE5\xED\xED\xFB\xE9 \xEF\xF3\xF2\xFC", 1, ""},
    {"Elapsed", "\xC2\xF0\xE5\xEC\xFF \xE2 \xEF\xF3\xF2\xE8", 1, ""},
    {"Average speed", "\xD1\xF0\xE5\xE4\xED\xFF\xFF \xF1\xEA\xEE\xF0\xEE\xF1\xF2\xFC", 1, ""},
    {"Speed", "\xD1\xEA\xEE\xF0\xEE\xF1\xF2\xFC", 0, ""},
    {"Max speed",
     "\xCC\xE0\xEA\xF1\xE8\xEC\xE0\xEB\xFC\xED\xE0\xFF \xF1\xEA\xEE\xF0\xEE\xF1\xF2\xFC", 1, ""},
    {"Accel. 0-10 km/h", ACCEL_RU "10" KMH_RU, 1, ""},
    {"Accel. 0-30 km/h", ACCEL_RU "30" KMH_RU, 1, ""},
    {"Accel. 0-60 km/h", ACCEL_RU "60" KMH_RU, 1, ""},
    {"Accel. 0-100 km/h", ACCEL_RU "100" KMH_RU, 1, ""},
    {"Accel. 0-150 km/h", ACCEL_RU "150" KMH_RU, 1, ""},
    {"Accel. 0-200 km/h", ACCEL_RU "200" KMH_RU, 1, ""},
    {"Latitude", "\xD8\xE8\xF0\xEE\xF2\xE0", 0, "N/A"},
    {"Longitude", "\xC4\xEE\xEB\xE3\xEE\xF2\xE0", 0, "N/A"},
    {"Altitude", "\xC2\xFB\xF1\xEE\xF2\xE0", 0, "N/A"},
    {"Azimuth", "\xC0\xE7\xE8\xEC\xF3\xF2", 0, "N/A"},
    {"HDOP", "HDOP", 0, "N/A"},
    {"VDOP", "VDOP", 0, "N/A"},
    {"PDOP", "PDOP", 0, "N/A"},
    {"Battery status", "\xC7\xE0\xF0\xFF\xE4\xEA\xE0 \xE1\xE0\xF2\xE0\xF0\xE5\xE8", 0, "80%"},
    {"Fastest 500m", FASTEST_RU "500" METRE_RU, 1, ""},
    {"Fastest 10000m", FASTEST_RU "10000" METRE_RU, 1, ""},
    {"Accel. 0-20 km/h", ACCEL_RU "20" KMH_RU, 1, ""},
    {"Accel. 0-40 km/h", ACCEL_RU "40" KMH_RU, 1, ""},
    {"Accel. 0-50 km/h", ACCEL_RU "50" KMH_RU, 1, ""},
    {"Accel. 0-70 km/h", ACCEL_RU "70" KMH_RU, 1, ""},
    {"Accel. 0-80 km/h", ACCEL_RU "80" KMH_RU, 1, ""},
    {"Accel. 0-90 km/h", ACCEL_RU "90" KMH_RU, 1, ""},
    {"Accel. 0-120 km/h", ACCEL_RU "120" KMH_RU, 1, ""},
};

TEST_F(Sensors, AreListedInTheirOrder) {
  Load();
  ASSERT_EQ(static_cast<int>(std::size(CATALOGUE)), engine->GetSensorsCount());
  for (int index = 0; index < engine->GetSensorsCount(); ++index) {
    EXPECT_EQ(CATALOGUE[index].english, engine->SensorName(index)) << index;
    EXPECT_EQ(CATALOGUE[index].saveable, engine->IsSensorSaveable(index)) << index;
  }
}

TEST_F(Sensors, HaveRussianNamesForARussianUser) {
  device->SetRussian();
  Load();
  EXPECT_EQ(1, engine->IsRussianLocale());
  for (int index = 0; index < engine->GetSensorsCount(); ++index) {
    EXPECT_EQ(CATALOGUE[index].russian, engine->SensorName(index)) << index;
  }
}

TEST_F(Sensors, ShowAnEmptyFixBeforeTheFirstUpdate) {
  Load();
  for (int index = 0; index < engine->GetSensorsCount(); ++index) {
    EXPECT_EQ(CATALOGUE[index].atStart, engine->SensorValue(index)) << CATALOGUE[index].english;
  }
}

TEST_F(Sensors, FollowAnEpoch) {
  Start();
  EXPECT_EQ(1U, Send(Sentence("GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,") +
                     Sentence("GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1") +
                     Sentence("GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W")));
  EXPECT_EQ("OK", engine->SensorValue(FEROLIN_SENSOR_GPS_STATUS));
  EXPECT_EQ("8", engine->SensorValue(FEROLIN_SENSOR_SATELLITES_USED));
  EXPECT_EQ("12:35:19", engine->SensorValue(FEROLIN_SENSOR_CURRENT_TIME));
  EXPECT_EQ("41.5 km/h", engine->SensorValue(FEROLIN_SENSOR_SPEED));  // 22.4 * 1.852 = 41.4848
  EXPECT_EQ("41.5 km/h", engine->SensorValue(FEROLIN_SENSOR_MAX_SPEED));
  EXPECT_EQ(
      "48\xB0"
      "7'2'' NL",
      engine->SensorValue(FEROLIN_SENSOR_LATITUDE));  // 0.038 minutes are 2.3 seconds
  EXPECT_EQ(
      "11\xB0"
      "31'0'' EL",
      engine->SensorValue(FEROLIN_SENSOR_LONGITUDE));
  EXPECT_EQ("545.4 m", engine->SensorValue(FEROLIN_SENSOR_ALTITUDE));
  EXPECT_EQ("84", engine->SensorValue(FEROLIN_SENSOR_AZIMUTH));
  EXPECT_EQ("1.3", engine->SensorValue(FEROLIN_SENSOR_HDOP));
  EXPECT_EQ("2.1", engine->SensorValue(FEROLIN_SENSOR_VDOP));
  EXPECT_EQ("2.5", engine->SensorValue(FEROLIN_SENSOR_PDOP));
}

TEST_F(Sensors, SouthAndWestHaveTheirLettersAndSecondsAreCut) {
  Start();
  EXPECT_EQ(1U, Send(Sentence("GPRMC,123519,A,5530.500,S,03745.990,W,022.4,084.4,230394,,")));
  EXPECT_EQ(
      "55\xB0"
      "30'30'' SL",
      engine->SensorValue(FEROLIN_SENSOR_LATITUDE));
  EXPECT_EQ(
      "37\xB0"
      "45'59'' WL",
      engine->SensorValue(FEROLIN_SENSOR_LONGITUDE));  // 59.4 seconds
}

TEST_F(Sensors, LoseTheSpeedWithTheFixButKeepTheMaximum) {
  Start();
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "30")));
  EXPECT_EQ(1U, Send(Rmc("120001", "V", "")));
  EXPECT_EQ("No signal", engine->SensorValue(FEROLIN_SENSOR_GPS_STATUS));
  EXPECT_EQ("", engine->SensorValue(FEROLIN_SENSOR_SPEED));
  EXPECT_EQ("55.6 km/h", engine->SensorValue(FEROLIN_SENSOR_MAX_SPEED));  // 55.56
}

TEST_F(Sensors, SpeakRussianUnitsWithDecimalPoints) {
  device->SetRussian();
  Start();
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "30")));
  EXPECT_EQ("55.6 \xEA\xEC/\xF7", engine->SensorValue(FEROLIN_SENSOR_SPEED));
  EXPECT_EQ(1U, Send(Rmc("120001", "V", "")));
  EXPECT_EQ("\xCD\xE5\xF2 \xF1\xE8\xE3\xED\xE0\xEB\xE0",
            engine->SensorValue(FEROLIN_SENSOR_GPS_STATUS));
}

TEST_F(Sensors, ShowTheBattery) {
  Start();
  const auto batteryText = [&](BYTE flag, BYTE percent) {
    static int second = 10;
    device->SetBattery(flag, percent);
    EXPECT_EQ(1U, Send(Rmc("1200" + std::to_string(second++), "A", "1")));
    return engine->SensorValue(FEROLIN_SENSOR_BATTERY_STATUS);
  };
  EXPECT_EQ("80%(charging)", batteryText(8, 80));
  EXPECT_EQ("charging", batteryText(8, 255));
  EXPECT_EQ("N/A", batteryText(0, 255));
  EXPECT_EQ("100%", batteryText(0, 100));
  EXPECT_EQ("0%", batteryText(4, 0));
}

TEST_F(Sensors, ResetEmptiesTheMaximumUntilTheNextFix) {
  Start();
  EXPECT_EQ(1U, Send(Rmc("120000", "A", "30")));
  EXPECT_EQ(1, engine->ResetSensorValue(FEROLIN_SENSOR_MAX_SPEED));
  EXPECT_EQ("", engine->SensorValue(FEROLIN_SENSOR_MAX_SPEED));
  EXPECT_EQ(1U, Send(Rmc("120001", "A", "10")));
  EXPECT_EQ("18.5 km/h", engine->SensorValue(FEROLIN_SENSOR_MAX_SPEED));
}

TEST_F(Sensors, CountATripOfTenSecondsAt36KmPerHour) {
  Start();
  // 19.438445 knots are 36 km/h.
  for (int second = 0; second <= 10; ++second) {
    const std::string time = "1200" + std::string(second < 10 ? "0" : "") + std::to_string(second);
    ASSERT_EQ(1U, Send(Rmc(time, "A", "19.438445")));
  }
  EXPECT_EQ("100 m", engine->SensorValue(FEROLIN_SENSOR_DISTANCE));
  EXPECT_EQ("36.00 km/h", engine->SensorValue(FEROLIN_SENSOR_AVERAGE_SPEED));
  EXPECT_EQ("10 s", engine->SensorValue(FEROLIN_SENSOR_ELAPSED));
}

TEST_F(Sensors, TakeTheirTripOverIntoTheNextRun) {
  Load();
  EXPECT_EQ(1, engine->SetSensorRegistryString(FEROLIN_SENSOR_DISTANCE, TEXT("12.5")));
  EXPECT_EQ("12.5 km", engine->SensorValue(FEROLIN_SENSOR_DISTANCE));
  EXPECT_EQ(1, engine->SetSensorRegistryString(FEROLIN_SENSOR_DISTANCE, TEXT("1.25")));
  EXPECT_EQ("1.25 km", engine->SensorValue(FEROLIN_SENSOR_DISTANCE));
  EXPECT_EQ(0, engine->SetSensorRegistryString(FEROLIN_SENSOR_DISTANCE, TEXT("0")));
  EXPECT_EQ(0, engine->SetSensorRegistryString(FEROLIN_SENSOR_DISTANCE, TEXT("-5")));
  EXPECT_EQ("1.25 km", engine->SensorValue(FEROLIN_SENSOR_DISTANCE));
  EXPECT_EQ("1.25", engine->RegistryString(FEROLIN_SENSOR_DISTANCE));
  EXPECT_EQ(1, engine->SetSensorRegistryString(FEROLIN_SENSOR_AVERAGE_SPEED, TEXT("100;7200")));
  EXPECT_EQ("50.00 km/h", engine->SensorValue(FEROLIN_SENSOR_AVERAGE_SPEED));
  EXPECT_EQ(1, engine->SetSensorRegistryString(FEROLIN_SENSOR_ELAPSED, TEXT("3725")));
  EXPECT_EQ("1:02:05", engine->SensorValue(FEROLIN_SENSOR_ELAPSED));
  EXPECT_EQ(1, engine->SetSensorRegistryString(FEROLIN_SENSOR_ACCEL_100, TEXT("80;9.5")));
  EXPECT_EQ("Accel. 0-80 km/h", engine->SensorName(FEROLIN_SENSOR_ACCEL_100));
  EXPECT_EQ("9.500 s", engine->SensorValue(FEROLIN_SENSOR_ACCEL_100));
  EXPECT_EQ(1, engine->SetSensorRegistryString(FEROLIN_SENSOR_FASTEST_402, TEXT("402;15250")));
  EXPECT_EQ("15.25 s", engine->SensorValue(FEROLIN_SENSOR_FASTEST_402));
  EXPECT_EQ("402;15250", engine->RegistryString(FEROLIN_SENSOR_FASTEST_402));
}

TEST_F(Sensors, KeepTheOldTripTextAfterAResetUntilTheNextUpdate) {
  Load();
  engine->SetSensorRegistryString(FEROLIN_SENSOR_DISTANCE, TEXT("12.5"));
  EXPECT_EQ(1, engine->ResetSensorValue(FEROLIN_SENSOR_DISTANCE));
  EXPECT_EQ("12.5 km", engine->SensorValue(FEROLIN_SENSOR_DISTANCE));
  EXPECT_EQ("0", engine->RegistryString(FEROLIN_SENSOR_DISTANCE));
}

}  // namespace

}  // namespace e2e
